#include "platform/qt_port_names.h"

#include <algorithm>
#include <utility>

namespace tarvex::platform
{

namespace
{

std::string Utf8(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// "FT232R USB UART (FTDI), serial A1B2", or as much of it as is known.
std::string ProductText(const MachinePort& port)
{
    std::string text = port.product.empty() ? port.maker : port.product;
    if (!port.product.empty() && !port.maker.empty()) text += " (" + port.maker + ")";
    if (!port.serialNumber.empty()) {
        text += (text.empty() ? "serial " : ", serial ") + port.serialNumber;
    }
    return text;
}

/// "com1 -> /dev/ttyUSB0, " and the product.
std::string DeviceText(const PortFacts& facts)
{
    std::string text = facts.choice.link;
    if (!text.empty()) text += " -> ";
    text += Utf8(facts.choice.device);
    const std::string product = ProductText(facts.product);
    return product.empty() ? text : text + ", " + product;
}

std::string PermissionAdvice(const std::string& group)
{
    if (group.empty()) return "Only the device's owner may open it.";
    return "Its users must be in the group " + group + ": run `sudo usermod -aG " + group +
           " $USER`, then log in again.";
}

MachinePort ProductOf(const std::filesystem::path& device, const std::vector<MachinePort>& ports)
{
    const auto port = std::find_if(ports.begin(), ports.end(), [&](const MachinePort& candidate) {
        return candidate.device == device;
    });
    return port != ports.end() ? *port : MachinePort{};
}

} // namespace

std::string DescribePort(const PortFacts& facts)
{
    const std::string number = std::to_string(facts.number);
    const std::string title = "Com " + number + ": ";
    if (facts.choice.device.empty()) {
        return title + "no device. Plug in the adapter, or make a link com" + number +
               " in the folder " + facts.startFolder + ".";
    }
    if (!facts.access.there) {
        return title + DeviceText(facts) +
               ", which is not there. Plug in the adapter, or make the link anew.";
    }
    if (!facts.access.permitted) {
        return title + DeviceText(facts) + ", not permitted. " +
               PermissionAdvice(facts.access.group);
    }
    return title + DeviceText(facts);
}

QtPortNames::QtPortNames(PortFinder finder) : finder_(std::move(finder)) {}

std::string QtPortNames::Describe(int number)
{
    const PortChoice choice = finder_.Find(number);
    return DescribePort({number, choice, ProductOf(choice.device, finder_.MachinePorts()),
                         AccessTo(choice.device), Utf8(finder_.StartFolder())});
}

} // namespace tarvex::platform
