#pragma once

#include "common/choices.h"
#include "support/test_program.h"

namespace tarvex::fuzz
{

/// A unit at the far end of the scripted port that answers by choice: as it should, or wrong, cut,
/// doubled, late, unasked, or not at all.
class HostileUnit
{
public:
    /// Takes the place of the program's own unit. Both must outlive it.
    HostileUnit(tests::TestProgram& program, Choices& choices);

private:
    void Take(std::string_view bytes);
    std::string RightAnswer(std::string_view bytes);
    std::string HeaderPage(char page);
    std::string Mutated(const std::string& answer);
    void SendLater(std::string bytes);

    tests::TestProgram& program_;
    Choices& choices_;
};

} // namespace tarvex::fuzz
