#pragma once

#include <filesystem>
#include <functional>

struct serial_struct;

namespace tarvex::platform
{

/// A request to a serial driver on an open line, as the system's own call: below 0 when refused.
using DriverCall = std::function<int(int descriptor, unsigned long request, serial_struct* line)>;

/// The system's own call.
int CallDriver(int descriptor, unsigned long request, serial_struct* line);

/// While it lives, the driver of an open line hands received bytes over at once. A USB adapter
/// otherwise holds them back until its latency timer runs out, 16 ms as a rule, twice an exchange.
/// A driver that knows nothing of it, or refuses, stays as it is; nothing here ever fails.
class LowLatency
{
public:
    /// The descriptor must outlive this object.
    explicit LowLatency(int descriptor, DriverCall call = CallDriver);

    /// Gives the driver's former state back, unless the device is gone.
    ~LowLatency();

    LowLatency(const LowLatency&) = delete;
    LowLatency& operator=(const LowLatency&) = delete;

private:
    bool Switch(bool on) const;

    int descriptor_;
    DriverCall call_;
    bool switched_;
};

/// How long the adapter of a device holds received bytes back at this moment, in milliseconds;
/// 0 for a device without such a timer. `characterDevices` is where the system describes its
/// devices by their numbers.
int LatencyMilliseconds(const std::filesystem::path& device,
                        const std::filesystem::path& characterDevices = "/sys/dev/char");

} // namespace tarvex::platform
