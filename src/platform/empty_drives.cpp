#include "platform/empty_drives.h"

#ifdef _WIN32
#include "platform/windows_system.h"
#endif

namespace tarvex::platform
{

void FailAtAnEmptyDrive()
{
#ifdef _WIN32
    ::SetErrorMode(::GetErrorMode() | SEM_FAILCRITICALERRORS);
#endif
}

} // namespace tarvex::platform
