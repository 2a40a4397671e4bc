#include "platform/low_latency.h"

#include "platform/device_number.h"

#include <fstream>
#include <linux/serial.h>
#include <sys/ioctl.h>
#include <utility>

namespace tarvex::platform
{

int CallDriver(int descriptor, unsigned long request, serial_struct* line)
{
    return ::ioctl(descriptor, request, line);
}

/// False when nothing was changed: the driver does not know of it, refuses, or is in that state.
bool LowLatency::Switch(bool on) const
{
    serial_struct line{};
    if (call_(descriptor_, TIOCGSERIAL, &line) < 0) return false;
    if (((line.flags & ASYNC_LOW_LATENCY) != 0) == on) return false;
    line.flags ^= ASYNC_LOW_LATENCY;
    return call_(descriptor_, TIOCSSERIAL, &line) >= 0;
}

int LatencyMilliseconds(const std::filesystem::path& device,
                        const std::filesystem::path& characterDevices)
{
    int milliseconds = 0;
    std::ifstream(characterDevices / DeviceNumberOf(device) / "device" / "latency_timer") >>
        milliseconds;
    return milliseconds;
}

LowLatency::LowLatency(int descriptor, DriverCall call)
    : descriptor_(descriptor), call_(std::move(call)), switched_(Switch(true))
{
}

LowLatency::~LowLatency()
{
    if (switched_) Switch(false);
}

} // namespace tarvex::platform
