#pragma once

#include <string>
#include <string_view>

namespace tarvex
{

/// The one serial port of the program: 9600 baud, 8 data bits, no parity, 2 stop bits, no flow
/// control, DTR on and RTS off while open. One byte is one character.
class SerialPort
{
public:
    virtual ~SerialPort() = default;

    /// Selects the port that the next Open uses, from 1. Fails while open.
    virtual void SetCommPort(int number) = 0;

    /// Opens the selected port with empty buffers. Fails when there is none, when another program
    /// holds it, when it may not be opened, and when already open.
    virtual void Open() = 0;

    /// Closes and drops what is unread and unsent. No effect when not open; never fails.
    virtual void Close() = 0;

    /// Queues the bytes and returns at once. Fails only when not open.
    virtual void Output(std::string_view bytes) = 0;

    /// Says that nothing needs be done before `count` bytes are there, until the next Output or
    /// Input: the port may let the program sleep while they come. Never fails.
    virtual void ExpectInput(int count) = 0;

    /// If the last bytes of what is expected are due now, sleeps until more of them are there, for
    /// a few milliseconds at most. False when none have come that way: the caller then waits in the
    /// event queue. Whoever says what is expected asks for it, or the port may go unwatched for a
    /// tenth of a second. Never fails.
    virtual bool AwaitRest() = 0;

    /// Received bytes not yet taken. Fails when not open.
    virtual int InBufferCount() = 0;

    /// Takes everything received. Fails when not open.
    virtual std::string Input() = 0;
};

} // namespace tarvex
