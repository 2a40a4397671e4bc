#pragma once

#include <filesystem>
#include <string>

namespace tarvex::tests
{

/// Where the gadget driver keeps what socket the adapter is in.
inline constexpr const char* kSocket = "/sys/kernel/config/usb_gadget/adapter/UDC";

/// Plugs the machine's USB adapter into its socket and returns the port that the host has made of
/// it, once the port can be opened and the link by the adapter's identity leads to it.
std::filesystem::path PlugIn();

/// Pulls it out, whether or not it was plugged in. Returns before the host has noticed.
void PullOut();

/// The link by which the adapter is found under whatever number it has.
std::filesystem::path LinkByIdentity();

} // namespace tarvex::tests
