#include "conversation/watched_pump.h"

#include "common/require.h"

namespace tarvex::fuzz
{

void WatchedPump::DoEvents()
{
    ++passes_;
    Require(passes_ <= allowed_, "a loop sleeps");
    pump_.DoEvents();
}

void WatchedPump::WaitForEvents()
{
    passes_ = 0;
    pump_.WaitForEvents();
}

} // namespace tarvex::fuzz
