#pragma once

#include "real_line/far_end.h"

#include <filesystem>
#include <ostream>
#include <string_view>

namespace tarvex::tests
{

/// What a serial chip is set to.
struct LineState {
    int baud = 0;
    int dataBits = 0;
    char parity = '?'; ///< N, O or E
    int stopBits = 0;
    bool dataTerminalReady = false;
    bool requestToSend = false;

    bool operator==(const LineState&) const = default;
};

inline void PrintTo(const LineState& state, std::ostream* out)
{
    *out << state.baud << ' ' << state.dataBits << state.parity << state.stopBits << ", DTR "
         << (state.dataTerminalReady ? "on" : "off") << ", RTS "
         << (state.requestToSend ? "on" : "off");
}

/// A serial port of this machine under a driver of its own, with the simulated unit at its far end.
class RealLine
{
public:
    RealLine() = default;
    virtual ~RealLine() = default;
    RealLine(const RealLine&) = delete;
    RealLine& operator=(const RealLine&) = delete;

    /// Where the port is opened.
    virtual std::filesystem::path Device() const = 0;

    /// What the chip itself is set to at this moment, asked without its driver.
    virtual LineState State() const = 0;

    /// Has those bytes reach the chip from the far end, whoever has the port open.
    virtual void Say(std::string_view bytes) = 0;

    /// Has the far end hold the line down for longer than a character takes.
    virtual void Break() = 0;

    /// How many requests the chip has had from its driver since it was made, beside the characters;
    /// 0 where nobody counts them.
    virtual int Requests() const { return 0; }

    FarEnd farEnd;
};

} // namespace tarvex::tests
