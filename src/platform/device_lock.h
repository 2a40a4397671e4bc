#pragma once

#include <filesystem>

namespace tarvex::platform
{

/// Holds a serial device against every other program, also against those of root, for whom the
/// system's exclusive flag does not count. It is taken before the port is opened, so that a device
/// that another program holds keeps its settings and its modem lines.
class DeviceLock
{
public:
    /// Fails, with a text that says which, when there is no such device, when it is no serial
    /// device, when it may not be opened, and when it is held: by another lock of this kind, or
    /// with the exclusive flag.
    explicit DeviceLock(const std::filesystem::path& device);
    ~DeviceLock() { Release(); }
    DeviceLock(const DeviceLock&) = delete;
    DeviceLock& operator=(const DeviceLock&) = delete;

    /// Lets the device go; no effect the second time.
    void Release();

private:
    int descriptor_ = -1;
};

} // namespace tarvex::platform
