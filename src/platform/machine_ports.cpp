#include "platform/machine_ports.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace tarvex::platform
{

namespace
{

/// The kinds of device that take a port number, in the order in which they do.
constexpr std::array<std::string_view, 3> kKinds = {"ttyS", "ttyUSB", "ttyACM"};

using Rank = std::pair<std::size_t, unsigned>; // kind, number within it

std::optional<unsigned> WholeNumber(std::string_view digits)
{
    unsigned number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

std::optional<Rank> RankOf(std::string_view name)
{
    for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
        if (!name.starts_with(kKinds[kind])) continue;
        if (const auto number = WholeNumber(name.substr(kKinds[kind].size()))) {
            return Rank(kind, *number);
        }
    }
    return std::nullopt;
}

} // namespace

std::vector<MachinePort> InPortOrder(const std::vector<MachinePort>& ports)
{
    std::vector<MachinePort> numbered;
    std::copy_if(ports.begin(), ports.end(), std::back_inserter(numbered),
                 [](const MachinePort& port) { return port.hasNode && RankOf(port.name); });
    std::sort(numbered.begin(), numbered.end(), [](const MachinePort& a, const MachinePort& b) {
        return RankOf(a.name) < RankOf(b.name);
    });
    return numbered;
}

} // namespace tarvex::platform
