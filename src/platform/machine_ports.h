#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::platform
{

/// A serial device that the machine knows of. Texts are UTF-8 and may be empty.
struct MachinePort {
    std::string name;             ///< as the system calls it: "ttyUSB0"
    std::filesystem::path device; ///< where it is opened: "/dev/ttyUSB0"
    std::string product;          ///< "FT232R USB UART"
    std::string maker;            ///< "FTDI"
    std::string serialNumber;     ///< distinguishes two adapters of one product
    bool hasNode = true;          ///< false when it is listed but has nothing to open
};

/// The devices that the port numbers stand for, Com 1 first: built-in ports (ttyS), then USB
/// adapters (ttyUSB), then USB modems (ttyACM), each in number order. Other devices and those
/// without a node take no number.
std::vector<MachinePort> InPortOrder(const std::vector<MachinePort>& ports);

/// What this machine has at the moment, in no order. Built-in ports without hardware are left out;
/// links and pseudo terminals are never listed. No port is opened for it.
std::vector<MachinePort> ListMachinePorts();

} // namespace tarvex::platform
