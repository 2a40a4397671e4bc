#include "platform/port_finder.h"

#include "core/code_page.h"

#include <optional>
#include <system_error>
#include <utility>

namespace tarvex::platform
{

namespace
{

namespace fs = std::filesystem;

#ifndef _WIN32
/// The choice that `place` in the start folder makes; none when it is neither link nor device.
std::optional<PortChoice> ChoiceOf(const fs::path& place)
{
    std::error_code absent;
    const fs::file_status status = fs::symlink_status(place, absent);
    if (fs::is_character_file(status)) return PortChoice{{}, place};
    if (!fs::is_symlink(status)) return std::nullopt;

    std::error_code leadsNowhere;
    fs::path device = fs::canonical(place, leadsNowhere);
    if (leadsNowhere) {
        device = (place.parent_path() / fs::read_symlink(place, absent)).lexically_normal();
    }
    return PortChoice{code_page::Shown(place.filename()), std::move(device)};
}
#endif

} // namespace

PortFinder::PortFinder(const fs::path& startFolder, Lister list) : list_(std::move(list))
{
    std::error_code gone; // a folder that is no longer there holds no link either
    startFolder_ = fs::absolute(startFolder, gone);
}

PortChoice PortFinder::Find(int number) const
{
#ifdef _WIN32
    return {{}, "COM" + std::to_string(number)};
#else
    if (const auto choice = ChoiceOf(startFolder_ / ("com" + std::to_string(number)))) {
        return *choice;
    }
    const std::vector<MachinePort> ports = InPortOrder(list_());
    if (number < 1 || static_cast<std::size_t>(number) > ports.size()) return {};
    return {{}, ports[static_cast<std::size_t>(number) - 1].device};
#endif
}

} // namespace tarvex::platform
