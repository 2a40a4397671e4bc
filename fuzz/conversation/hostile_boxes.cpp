#include "conversation/hostile_boxes.h"

#include "common/require.h"
#include "core/failure.h"

namespace tarvex::fuzz
{

void HostileBoxes::Critical(std::string_view text, std::string_view title)
{
    Require(title == kProgramTitle, "a box has the program's title");
    Show(text);
}

bool HostileBoxes::AskOkCancel(std::string_view text)
{
    Show(text);
    return !choices_.Chance(20);
}

void HostileBoxes::Show(std::string_view text)
{
    Require(!text.empty(), "a box says something");
    constexpr tests::Milliseconds reading[] = {0, 100, 700, 3000};
    world_.PassTime(choices_.OneOf(reading));
    if (world_.Ended()) throw ProgramEnded();
}

} // namespace tarvex::fuzz
