#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace tarvex::platform
{

/// What the last attempt to open a device has shown, and what nobody can see without opening it.
struct OpeningNote {
    bool held = false;           ///< another program had it
    int latencyMilliseconds = 0; ///< how long its adapter holds received bytes back all the same
    int holder = 0; ///< the process of the program that had it, where the system says so
};

/// How the last attempt to open a port number went.
struct LastOpening {
    std::filesystem::path device = {}; ///< what the number meant then; empty when it had no device
    std::string time = {};             ///< "14:02"; empty when it was never tried
    std::string refusal = {};          ///< why it did not open; empty when it did
};

/// The notes of all devices and numbers that this run has tried to open. The port writes them, the
/// port's description reads them.
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

    /// Replaces what is known of a number.
    void PutLast(int number, const LastOpening& opening) { openings_[number] = opening; }

    /// An empty one for a number that was never tried.
    LastOpening LastOf(int number) const
    {
        const auto opening = openings_.find(number);
        return opening != openings_.end() ? opening->second : LastOpening{};
    }

private:
    std::map<std::filesystem::path, OpeningNote> notes_;
    std::map<int, LastOpening> openings_;
};

} // namespace tarvex::platform
