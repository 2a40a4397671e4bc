#pragma once

#include "support/test_program.h"
#include "unit/unit.h"

#include <string>
#include <vector>

namespace tarvex::tests
{

/// The line between a program and a simulated unit, which takes the place of the program's scripted
/// one, with an ear on it.
class HeardLine
{
public:
    /// Something that one of the two has said, in one go.
    struct Said {
        Milliseconds at;
        bool byUnit;
        std::string bytes;
    };

    HeardLine(TestProgram& program, unit::Memory memory);

    unit::Unit unit;

    /// All that has been said, in order.
    std::vector<Said> said;

    /// The same as lines, as the log of a line shows them but for the time.
    std::vector<std::string> Lines() const;

private:
    void Hear(TestProgram& program, std::string_view bytes);
};

} // namespace tarvex::tests
