#pragma once

#include "real_line/real_line.h"

#include <linux/usb/ch9.h>
#include <string>

namespace tarvex::tests
{

/// The two status bytes that the chip puts before whatever it sends, when it has noticed nothing:
/// clear to send, data set ready; nothing to be sent.
inline constexpr std::string_view kQuietStatus = "\x31\x60";

/// The settings of an FTDI chip, as its driver's requests make them.
class FtdiRegisters
{
public:
    /// Takes a request, and gives the bytes that go back, if any.
    std::string Obey(const usb_ctrlrequest& request);

    const LineState& State() const { return state_; }

    /// How long the chip may keep received bytes back, in milliseconds.
    int LatencyTimer() const { return latencyTimer_; }

private:
    void SetModemLines(unsigned value);
    void SetCharacter(unsigned value);

    LineState state_;
    int latencyTimer_ = 16;
};

/// True for the request that empties the chip's buffers, which comes first at each opening.
bool IsReset(const usb_ctrlrequest& request);

} // namespace tarvex::tests
