#include "real_line/ftdi_registers.h"

#include <array>

namespace tarvex::tests
{

namespace
{

enum Request {
    kReset = 0,
    kSetModemLines = 1,
    kSetSpeed = 3,
    kSetCharacter = 4,
    kGetModemStatus = 5,
    kSetLatencyTimer = 9,
    kGetLatencyTimer = 10,
};

/// The chip divides 3 MHz, in eighths, whose code is spread over value and index.
int SpeedOf(unsigned value, unsigned index)
{
    constexpr std::array<unsigned, 8> kEighths{0, 4, 2, 1, 3, 5, 6, 7};
    const unsigned code = (value >> 14U) | ((index & 1U) << 2U);
    const unsigned divisor = 8 * (value & 0x3FFFU) + kEighths.at(code);
    return divisor == 0 ? 0 : static_cast<int>(24'000'000 / divisor);
}

} // namespace

std::string FtdiRegisters::Obey(const usb_ctrlrequest& request)
{
    switch (request.bRequest) {
    case kSetModemLines:
        SetModemLines(request.wValue);
        return {};
    case kSetSpeed:
        state_.baud = SpeedOf(request.wValue, request.wIndex);
        return {};
    case kSetCharacter:
        SetCharacter(request.wValue);
        return {};
    case kSetLatencyTimer:
        latencyTimer_ = request.wValue & 0xFF;
        return {};
    case kGetLatencyTimer:
        return {static_cast<char>(latencyTimer_)};
    case kGetModemStatus:
        return std::string(kQuietStatus);
    default:
        return {};
    }
}

/// The upper byte says which of the two lines are meant.
void FtdiRegisters::SetModemLines(unsigned value)
{
    if ((value & 0x100U) != 0) state_.dataTerminalReady = (value & 1U) != 0;
    if ((value & 0x200U) != 0) state_.requestToSend = (value & 2U) != 0;
}

void FtdiRegisters::SetCharacter(unsigned value)
{
    constexpr std::array kParities{'N', 'O', 'E', 'M', 'S', '?', '?', '?'};
    state_.dataBits = static_cast<int>(value & 0xFFU);
    state_.parity = kParities.at((value >> 8U) & 7U);
    state_.stopBits = ((value >> 11U) & 3U) == 0 ? 1 : 2;
}

bool IsReset(const usb_ctrlrequest& request)
{
    return request.bRequest == kReset && request.wValue == 0;
}

} // namespace tarvex::tests
