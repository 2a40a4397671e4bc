#pragma once

#include "support/scripted_port.h"
#include "support/virtual_world.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::tests
{

/// The unit at the far end of a ScriptedPort, as plain as the manager needs it: it answers wakes
/// and read frames from a table of pages, and takes orders where to behave otherwise.
class ScriptedUnit
{
public:
    ScriptedUnit(VirtualWorld& world, ScriptedPort& port);

    /// How long an answer takes.
    Milliseconds latency = 1;

    /// The answer to the n-th wake (from 1); an empty one is silence.
    std::function<std::string(int)> answerWake = [](int) { return "!"; };

    /// The reply to the n-th read frame (from 1) in place of `reply`; an empty one is silence.
    std::function<std::string(int, const std::string& reply)> answerRead =
        [](int, const std::string& reply) { return reply; };

    /// Run when the n-th wake (from 1) has come, before its answer.
    std::function<void(int)> onWake;

    /// Memory by address ("00100"): sixteen bytes at most, padded with NUL bytes.
    std::map<std::string, std::string> pages;

    /// Answers to whole frames other than wakes and reads, with their CR ("H\r").
    std::map<std::string, std::string> answers;

    int wakes = 0;
    int reads = 0;

    /// Stores a header in the ten pages of the block with index `index` (0 to 29).
    void SetHeader(int index, const std::vector<std::string>& tenFields);

    /// Stores the readings of one depth in data page `page` (0 to 239) of that block, high bytes
    /// first.
    void SetReadings(int index, int page, const std::vector<std::uint16_t>& words);

    /// The reply to a read frame: sixteen bytes as two digits and a blank, CR and LF.
    static std::string PageReply(std::string_view bytes);

private:
    void Take(std::string_view bytes);
    void Answer(std::string bytes);

    VirtualWorld& world_;
    ScriptedPort& port_;
};

} // namespace tarvex::tests
