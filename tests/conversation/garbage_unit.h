#pragma once

#include "support/test_program.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvex::tests
{

/// A unit that answers with garbage: wrong, cut, doubled, late and unasked bytes, and now and then
/// what it should. The same seed gives the same conversation on every machine.
class GarbageUnit
{
public:
    /// Takes the place of the program's own unit. `honesty` in percent: how often it answers right.
    GarbageUnit(TestProgram& program, std::uint32_t seed, unsigned honesty);

private:
    unsigned Below(unsigned bound);
    bool Chance(unsigned percent) { return Below(100) < percent; }
    std::string Noise(unsigned longest);
    std::string RandomPage();
    std::string AnswerFor(std::string_view bytes);
    void Take(std::string_view bytes);
    void SendLater(std::string bytes);

    TestProgram& program_;
    std::uint32_t state_;
    unsigned honesty_;
};

} // namespace tarvex::tests
