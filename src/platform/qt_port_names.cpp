#include "platform/qt_port_names.h"

#include "platform/text/qt_text.h"

#include <algorithm>
#include <utility>

namespace tarvex::platform
{

namespace
{

std::string Utf8(const std::filesystem::path& path)
{
    const QByteArray text = PathToQString(path).toUtf8();
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

std::string AbsenceText()
{
#ifdef _WIN32
    return ", which is not there. Plug in the adapter, or give its port this number in the device "
           "manager.";
#else
    return ", which is not there. Plug in the adapter, or make the link anew.";
#endif
}

/// For what is there and can never be a line to the unit.
std::string DeadText(const PortFacts& facts)
{
    const std::string advice = facts.choice.link.empty()
                                   ? "Choose another port."
                                   : "Make the link " + facts.choice.link + " anew.";
    if (facts.kind == DeviceKind::WithoutHardware) {
        return ", a dead port: the machine has no hardware for it. " + advice;
    }
    return ", which is no serial device. " + advice;
}

std::string PermissionText(const std::string& group)
{
    const std::string text = ", not permitted. ";
    if (group.empty()) {
        return text + "Only the device's owner may open it: ask the machine's administrator.";
    }
    return text + "Its users must be in the group " + group + ": run `sudo usermod -aG " + group +
           " $USER`, then log in again.";
}

std::string HolderText(const DeviceHolder& holder)
{
    const std::string name = holder.Name();
    const std::string text = ", in use by another program" + (name.empty() ? name : ": " + name);
    if (holder.process == 0 && !holder.lockFile.empty()) {
        return text + ". End that program; if none is left, remove the lock file.";
    }
    return text +
           ". End that program, or wait until it lets the port go, then give the command again.";
}

std::string FormerHolderText()
{
    return ", in use by another program when a command last tried it. End that program, or wait "
           "until it lets the port go, then give the command again.";
}

std::string LatencyText(const PortFacts& facts)
{
    return ". Its adapter holds received bytes back for up to " +
           std::to_string(facts.note.latencyMilliseconds) +
           " ms, and the timer could not be shortened: reading takes longer. Run `echo 1 | sudo "
           "tee /sys/class/tty/" +
           Utf8(facts.choice.device.filename() / "device" / "latency_timer") + "`.";
}

/// What keeps the device from its work, the first thing first; empty when nothing does.
std::string TroubleText(const PortFacts& facts)
{
    if (!facts.access.there) return AbsenceText();
    if (facts.kind != DeviceKind::Serial) return DeadText(facts);
    if (!facts.access.permitted) return PermissionText(facts.access.group);
    if (facts.holder) return HolderText(*facts.holder);
    if (facts.note.held) return FormerHolderText();
    if (facts.note.latencyMilliseconds > 1) return LatencyText(facts);
    return {};
}

/// Nothing of another device that the number meant before.
std::string OpeningText(const PortFacts& facts)
{
    const LastOpening& last = facts.opening;
    if (last.time.empty() || last.device != facts.choice.device) return {};
    if (last.refusal.empty()) return "\nopened " + last.time;
    return "\nnot opened " + last.time + ": " + last.refusal;
}

std::string AdviceWithoutADevice(const PortFacts& facts)
{
    const std::string advice = "no device. Plug in the adapter";
    if (facts.startFolder.empty()) return advice + "."; // the folder is gone
    return advice + ", or make a link com" + std::to_string(facts.number) + " in the folder " +
           facts.startFolder + ".";
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
    const std::string text = facts.choice.device.empty() ? AdviceWithoutADevice(facts)
                                                         : DeviceText(facts) + TroubleText(facts);
    return "Com " + std::to_string(facts.number) + ": " + text + OpeningText(facts);
}

QtPortNames::QtPortNames(PortFinder finder, PortSurroundings surroundings)
    : finder_(std::move(finder)), surroundings_(std::move(surroundings))
{
}

std::string QtPortNames::Describe(int number)
{
    return DescribePort(FactsOf(number));
}

PortFacts QtPortNames::FactsOf(int number) const
{
    const PortChoice choice = finder_.Find(number);
    PortFacts facts{number, choice, ProductOf(choice.device, finder_.MachinePorts()),
                    AccessTo(choice.device), Utf8(finder_.StartFolder())};
    facts.opening = surroundings_.notes->LastOf(number);
    if (!facts.access.there) return facts;
    facts.kind = KindOf(choice.device, surroundings_.characterDevices);
    facts.note = surroundings_.notes->Of(choice.device);
    facts.holder = HolderOf(choice.device, surroundings_.locks, facts.note.holder);
    if (facts.holder && facts.holder->IsOurs()) facts.holder.reset();
    return facts;
}

} // namespace tarvex::platform
