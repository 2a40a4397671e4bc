#pragma once

#include <filesystem>
#include <functional>
#include <sys/types.h>

namespace tarvex::tests
{

/// Another program that opens a device and does `hold` to it, for as long as this lives; the
/// descriptor is -1 when it could not open it, with the reason in errno.
class OtherProgram
{
public:
    OtherProgram(const std::filesystem::path& device, const std::function<bool(int)>& hold);
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    pid_t Process() const { return child_; }

private:
    pid_t child_ = -1;
    int leave_ = -1;
};

/// What the other program does that only opens the device.
inline bool Opens(int descriptor)
{
    return descriptor >= 0;
}

/// The number of a process that has ended.
pid_t EndedProcess();

} // namespace tarvex::tests
