#pragma once

#include "platform/port_surroundings.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace tarvex::platform
{

/// One opening of a serial device, until it is destroyed: what its device has queued for later dies
/// with it and can never touch the next one. Once the device has vanished, it is open and silent.
class PortOpening
{
public:
    virtual ~PortOpening() = default;

    /// Queues the bytes and returns at once.
    virtual void Send(std::string_view bytes) = 0;

    /// Received bytes not yet taken.
    virtual int Count() const = 0;

    /// Takes everything received.
    virtual std::string TakeAll() = 0;

    /// The next thing that matters is the moment when `count` bytes are there.
    virtual void Expect(int count) = 0;

    /// If the last of what is expected is due now, sleeps until more is there, for a few
    /// milliseconds at most. False when nothing has come that way.
    virtual bool AwaitRest() = 0;
};

/// Opens the device as the line to a unit, with empty buffers: 9600 baud, 8 data bits, no parity, 2
/// stop bits, no flow control, DTR on, RTS off, and to itself. Fails as DeviceHeld when another
/// program has it, else as RunTimeFailure with a text that says why it does not open.
std::unique_ptr<PortOpening> OpenDevice(const std::filesystem::path& device,
                                        const PortSurroundings& surroundings);

} // namespace tarvex::platform
