#pragma once

#include "platform/machine_ports.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tarvex::platform
{

/// What a port number means at this moment.
struct PortChoice {
    /// The name of the link that decides ("com1"); empty when none does.
    std::string link;

    /// What to open, absolute and with all links followed; empty when the number has no device. A
    /// link that leads nowhere names the place that it points to.
    std::filesystem::path device;
};

/// Finds the device of a port number each time it is asked, since adapters come and go.
///
/// A link or device `com<n>` in the start folder decides alone, even when the link leads nowhere:
/// an operator who has tied a number to an adapter must never reach another instrument by it.
/// Without one, number n is the n-th of the machine's own devices (see InPortOrder).
class PortFinder
{
public:
    using Lister = std::function<std::vector<MachinePort>()>;

    /// `startFolder` is where the program was started; `list` gives the machine's devices.
    explicit PortFinder(const std::filesystem::path& startFolder, Lister list = ListMachinePorts);

    /// The device of port `number`, from 1. Never fails.
    PortChoice Find(int number) const;

    /// The machine's devices at this moment, in no order.
    std::vector<MachinePort> MachinePorts() const { return list_(); }

    const std::filesystem::path& StartFolder() const { return startFolder_; }

private:
    std::filesystem::path startFolder_;
    Lister list_;
};

} // namespace tarvex::platform
