#include "conversation/garbage_unit.h"

#include <array>

namespace tarvex::tests
{

namespace
{
/// Steps of the unit's latency, in milliseconds: at once, as a rule, late, and past a timed wake.
constexpr std::array<Milliseconds, 5> kDelays = {0, 1, 20, 150, 590};
} // namespace

GarbageUnit::GarbageUnit(TestProgram& program, std::uint32_t seed, unsigned honesty)
    : program_(program), state_(seed * 2654435761U + 1), honesty_(honesty)
{
    program.port.unit = [this](std::string_view bytes) { Take(bytes); };
}

/// A number below `bound`; a plain shift register, for the standard generators' ranges differ from
/// library to library.
unsigned GarbageUnit::Below(unsigned bound)
{
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    return state_ % bound;
}

std::string GarbageUnit::Noise(unsigned longest)
{
    constexpr std::string_view likely = "!}\r\n 0123456789ABCDEFabcdefG/-;";
    std::string noise(Below(longest + 1), '\0');
    for (char& byte : noise) {
        byte = Chance(60) ? likely[Below(static_cast<unsigned>(likely.size()))]
                          : static_cast<char>(Below(256));
    }
    return noise;
}

/// A well-formed page: any bytes, or digits, so that some depths are numbers.
std::string GarbageUnit::RandomPage()
{
    const bool anyBytes = Chance(30);
    std::string bytes(16, '0');
    for (char& byte : bytes) {
        byte = anyBytes ? static_cast<char>(Below(256))
                        : static_cast<char>(Chance(1) ? '/' : '0' + static_cast<char>(Below(10)));
    }
    return ScriptedUnit::PageReply(bytes);
}

std::string GarbageUnit::AnswerFor(std::string_view bytes)
{
    const bool wake = bytes == "}";
    if (Chance(honesty_)) return wake ? "!" : RandomPage();
    switch (Below(5)) {
    case 0:
        return Noise(wake ? 3 : 120);
    case 1:
        return wake ? "!!" : RandomPage() + Noise(10);
    case 2:
        return wake ? "!\r" : RandomPage().substr(0, Below(51));
    case 3:
        return wake ? RandomPage() : Noise(1) + RandomPage();
    default:
        return wake ? "?" : Noise(60);
    }
}

void GarbageUnit::Take(std::string_view bytes)
{
    SendLater(AnswerFor(bytes));
    if (!Chance(honesty_) && Chance(20)) SendLater(Noise(4));
}

void GarbageUnit::SendLater(std::string bytes)
{
    const Milliseconds delay = kDelays[Below(static_cast<unsigned>(kDelays.size()))];
    program_.world.After(delay, [this, bytes = std::move(bytes)] { program_.port.Receive(bytes); });
}

} // namespace tarvex::tests
