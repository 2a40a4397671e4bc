#include "platform/described_ports.h"

#include "platform/device_kind.h"

#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

namespace tarvex::platform
{

namespace
{

namespace fs = std::filesystem;

std::string LineOf(const fs::path& attribute)
{
    std::string line;
    std::ifstream stream(attribute);
    std::getline(stream, line);
    return line;
}

/// The USB device that `part` belongs to; empty when it belongs to none.
fs::path AdapterWith(fs::path part)
{
    std::error_code unreadable;
    while (part.has_relative_path() && !fs::exists(part / "idVendor", unreadable))
        part = part.parent_path();
    return part.has_relative_path() ? part : fs::path();
}

/// Nothing for what has no hardware: a console, or a built-in port without a chip.
std::optional<MachinePort> PortOf(const fs::path& description, const fs::path& devices)
{
    std::error_code none;
    const fs::path hardware = fs::canonical(description / "device", none);
    if (none || HasNoChip(description)) return std::nullopt;

    MachinePort port;
    port.name = description.filename().native();
    port.device = devices / port.name;
    if (const fs::path adapter = AdapterWith(hardware); !adapter.empty()) {
        port.product = LineOf(adapter / "product");
        port.maker = LineOf(adapter / "manufacturer");
        port.serialNumber = LineOf(adapter / "serial");
    }
    port.hasNode = fs::exists(port.device, none);
    return port;
}

} // namespace

std::vector<MachinePort> DescribedPorts(const fs::path& terminals, const fs::path& devices)
{
    std::vector<MachinePort> ports;
    std::error_code unreadable;
    for (fs::directory_iterator entry(terminals, unreadable), end; entry != end && !unreadable;
         entry.increment(unreadable)) {
        if (auto port = PortOf(entry->path(), devices)) ports.push_back(std::move(*port));
    }
    return ports;
}

// The toolkit's own list opens every port of a certain driver, held or not.
std::vector<MachinePort> ListMachinePorts()
{
    return DescribedPorts("/sys/class/tty", "/dev");
}

} // namespace tarvex::platform
