#pragma once

#include "core/port_names.h"
#include "platform/device_access.h"
#include "platform/device_holder.h"
#include "platform/device_kind.h"
#include "platform/machine_ports.h"
#include "platform/port_finder.h"
#include "platform/port_surroundings.h"

#include <optional>
#include <string>

namespace tarvex::platform
{

/// All that is known of one port number at one moment.
struct PortFacts {
    int number = 1;
    PortChoice choice;
    MachinePort product; ///< of the chosen device; empty when the machine does not list it
    DeviceAccess access;
    std::string startFolder; ///< UTF-8
    DeviceKind kind = DeviceKind::Serial;
    std::optional<DeviceHolder> holder = {}; ///< another program that keeps it to itself
    OpeningNote note = {};                   ///< what the last opening has shown
    LastOpening opening = {};                ///< how it went, whatever the number meant then
};

/// Those facts as a few sentences for the operator: the device, and, where it cannot be opened or
/// is slow, what to do about it; in a line of its own, how the last opening went if it was that of
/// this device: "opened 14:02". UTF-8.
std::string DescribePort(const PortFacts& facts);

/// The port numbers as the system knows them at the moment of asking. No device is opened for it.
class QtPortNames : public PortNames
{
public:
    /// `surroundings` are where it looks on this machine; a test gives its own.
    explicit QtPortNames(PortFinder finder, PortSurroundings surroundings = {});
    std::string Describe(int number) override;

private:
    PortFacts FactsOf(int number) const;

    PortFinder finder_;
    PortSurroundings surroundings_;
};

} // namespace tarvex::platform
