#pragma once

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace tarvex::tests
{

/// For as long as it lives, no leak is counted. The toolkit is built without clean-up for
/// exceptions: one that crosses it leaves what it had made on the way.
class ToolkitMayLeak
{
public:
#if defined(__SANITIZE_ADDRESS__)
    ToolkitMayLeak()
    {
        __lsan_disable();
    }
    ~ToolkitMayLeak()
    {
        __lsan_enable();
    }
#else
    ToolkitMayLeak() {}
    ~ToolkitMayLeak() {}
#endif
    ToolkitMayLeak(const ToolkitMayLeak&) = delete;
    ToolkitMayLeak& operator=(const ToolkitMayLeak&) = delete;
};

} // namespace tarvex::tests
