// Wakes and reads pages through libserialport, blocking: peer_serialport DEVICE EXCHANGES.

#include "line/peer.h"

#include <cstdarg>
#include <cstdlib>
#include <libserialport.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <unistd.h>

/// The library opens no device without modem lines, as a pseudo terminal is: they are all off here.
extern "C" [[gnu::visibility("default")]] int ioctl(int descriptor, unsigned long request,
                                                    ...) noexcept
{
    std::va_list arguments;
    va_start(arguments, request);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    if (request == TIOCMGET) *static_cast<int*>(argument) = 0;
    for (const unsigned long modem : {TIOCMGET, TIOCMSET, TIOCMBIS, TIOCMBIC})
        if (request == modem) return 0;
    return static_cast<int>(::syscall(SYS_ioctl, descriptor, request, argument));
}

namespace
{

void Require(bool done)
{
    if (!done) std::exit(1);
}

sp_port* OpenPort(const char* device)
{
    // It looks for the same name below its description of the devices, which has no pseudo
    // terminal; a name that climbs to the root leads to the device in both places.
    const std::string name = std::string("/dev/../../..") + device;
    sp_port* port = nullptr;
    Require(sp_get_port_by_name(name.c_str(), &port) == SP_OK);
    Require(sp_open(port, SP_MODE_READ_WRITE) == SP_OK);
    Require(sp_set_baudrate(port, 9600) == SP_OK);
    Require(sp_set_bits(port, 8) == SP_OK);
    Require(sp_set_stopbits(port, 2) == SP_OK);
    return port;
}

} // namespace

int main(int argc, char* argv[])
{
    Require(argc == 3);
    sp_port* port = OpenPort(argv[1]);
    char buffer[64];
    tarvex::bench::Converse(
        {[&](const std::string& bytes) {
             const int size = static_cast<int>(bytes.size());
             Require(sp_blocking_write(port, bytes.data(), bytes.size(), 0) == size);
         },
         [&](int count) {
             Require(sp_blocking_read(port, buffer, static_cast<std::size_t>(count), 0) == count);
         }},
        std::stoi(argv[2]));
    sp_close(port);
    sp_free_port(port);
}
