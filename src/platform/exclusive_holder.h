#pragma once

#include <filesystem>
#include <optional>

namespace tarvex::platform
{

/// Another process that has the device open while it carries the exclusive flag; none when there is
/// no flag, or only processes have it open that this user may not look into. Nothing is opened: the
/// flag is read through a second descriptor of that process's own opening. All processes are looked
/// at, which takes some milliseconds, unless `formerly`, the process that had it the last time, has
/// it still.
std::optional<int> ExclusiveHolderOf(const std::filesystem::path& device, int formerly = 0);

/// While it lives, this thread heeds the exclusive flag as every ordinary user does: the opening of
/// a device that carries it is refused before the device notices. The administrator is otherwise
/// let through. No effect for an ordinary user.
class ExclusiveFlagHeeded
{
public:
    ExclusiveFlagHeeded();
    ~ExclusiveFlagHeeded();
    ExclusiveFlagHeeded(const ExclusiveFlagHeeded&) = delete;
    ExclusiveFlagHeeded& operator=(const ExclusiveFlagHeeded&) = delete;

private:
    bool lowered_ = false;
};

} // namespace tarvex::platform
