#include "real_line/usb_socket.h"

#include "real_line/await.h"

#include <fstream>

namespace tarvex::tests
{

namespace
{

namespace fs = std::filesystem;

/// An empty name pulls the adapter out.
bool BindTo(const std::string& socket)
{
    std::ofstream file(kSocket);
    file << socket << std::endl;
    return file.good();
}

/// What the host has made of the adapter; empty when it knows of none.
std::string PortOfHost()
{
    std::error_code none;
    for (const auto& port : fs::directory_iterator("/sys/bus/usb-serial/devices", none))
        return port.path().filename();
    return {};
}

bool LeadsTo(const fs::path& link, const fs::path& device)
{
    std::error_code none;
    return fs::canonical(link, none) == device;
}

} // namespace

fs::path PlugIn()
{
    Await([] { return PortOfHost().empty(); }, "the host has not noticed the pull");
    if (!BindTo("dummy_udc.0")) throw std::runtime_error("the adapter cannot be plugged in");
    Await([] { return !PortOfHost().empty(); }, "the host makes no port of the adapter");
    fs::path device = "/dev/" + PortOfHost();
    Await([&] { return LeadsTo(LinkByIdentity(), device); }, "the port gets no link");
    return device;
}

void PullOut()
{
    BindTo({});
}

fs::path LinkByIdentity()
{
    return "/dev/serial/by-id/usb-FTDI_FT232R_USB_UART_TV000001-if00-port0";
}

} // namespace tarvex::tests
