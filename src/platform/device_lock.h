#pragma once

#include "core/failure.h"
#include "platform/lock_file.h"

#include <filesystem>

namespace tarvex::platform
{

/// The failure of a device that another program holds.
class DeviceHeld : public RunTimeFailure
{
public:
    using RunTimeFailure::RunTimeFailure;
};

/// Holds a serial device against every other program, also against those of root, for whom the
/// system's exclusive flag does not count.
class DeviceLock
{
public:
    /// Fails, with a text that says which, when there is no such device, when it is no serial
    /// device, when it may not be opened, and, as DeviceHeld, when it is held: by an advisory lock,
    /// by a lock file, or with the exclusive flag. A device that is held is not opened, for the
    /// opening alone raises the modem lines of the program that holds it.
    DeviceLock(const std::filesystem::path& device, const LockFolders& folders);
    ~DeviceLock() { Release(); }
    DeviceLock(const DeviceLock&) = delete;
    DeviceLock& operator=(const DeviceLock&) = delete;

    /// The path by which the toolkit is to open the device. The toolkit makes a lock file of that
    /// name and gives up when there is one; so it is another path to the same device where a lock
    /// file is there that nobody holds and that this user may not remove.
    const std::filesystem::path& NameToOpen() const { return name_; }

    /// An opening of the device that lives until the release; -1 where there is none.
    int Descriptor() const { return descriptor_; }

    /// Lets the device go; no effect the second time.
    void Release();

private:
    int descriptor_ = -1;
    std::filesystem::path name_;
};

} // namespace tarvex::platform
