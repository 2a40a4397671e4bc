#pragma once

#include <filesystem>
#include <map>

namespace tarvex::platform
{

/// What the last attempt to open a device has shown, and what nobody can see without opening it.
struct OpeningNote {
    bool held = false;           ///< another program had it
    int latencyMilliseconds = 0; ///< how long its adapter holds received bytes back all the same
};

/// The notes of all devices that this run has tried to open. The port writes them, the port's
/// description reads them.
class OpeningNotes
{
public:
    /// Replaces the note of a device.
    void Put(const std::filesystem::path& device, const OpeningNote& note)
    {
        notes_[device] = note;
    }

    /// An empty note for a device that was never tried.
    OpeningNote Of(const std::filesystem::path& device) const
    {
        const auto note = notes_.find(device);
        return note != notes_.end() ? note->second : OpeningNote{};
    }

private:
    std::map<std::filesystem::path, OpeningNote> notes_;
};

} // namespace tarvex::platform
