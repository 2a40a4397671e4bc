#pragma once

#include "platform/machine_ports.h"

namespace tarvex::platform
{

/// The serial devices that the system describes in the folder `terminals`, with their nodes in
/// `devices`, in no order; without the built-in ports that have no chip. Only the descriptions are
/// read: opening a port to ask its driver would raise the modem lines of the program that has it.
std::vector<MachinePort> DescribedPorts(const std::filesystem::path& terminals,
                                        const std::filesystem::path& devices);

} // namespace tarvex::platform
