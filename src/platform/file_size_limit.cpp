#include "platform/file_size_limit.h"

#ifndef _WIN32
#include <csignal>
#endif

namespace tarvex::platform
{

#ifdef _WIN32

void FailWritesAtTheSizeLimit() {}

#else

/// A handler that does nothing: ignoring the signal would be inherited by every program started.
void FailWritesAtTheSizeLimit()
{
    struct sigaction nothing {
    };
    nothing.sa_handler = [](int) {};
    nothing.sa_flags = SA_RESTART;
    ::sigaction(SIGXFSZ, &nothing, nullptr);
}

#endif

} // namespace tarvex::platform
