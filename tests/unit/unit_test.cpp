#include "unit/survey.h"
#include "unit/unit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::unit
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

std::string Said(const std::vector<Reply>& replies)
{
    std::string bytes;
    for (const auto& reply : replies)
        bytes += reply.bytes;
    return bytes;
}

std::string Asked(Unit& unit, std::string_view frame, Time now = Time{0})
{
    EXPECT_EQ(Said(unit.Feed("}", now)), "!");
    return Said(unit.Feed(frame, now));
}

TEST(UnitWake, IsAnsweredByOneExclamationMark)
{
    Unit unit(BlankMemory());
    EXPECT_THAT(unit.Feed("}", Time{5}), ElementsAre(Reply{Time{0}, "!", false}));
}

TEST(UnitRead, AnswersSixteenPairsWithBlanksAndCrLf)
{
    Unit unit(BlankMemory());
    EXPECT_EQ(Asked(unit, "a0A000\r"), "43 4C 49 45 4E 54 31 31 00 00 00 00 00 00 00 00 \r\n");
}

TEST(UnitRead, WithoutAWakeIsNotAnswered)
{
    Unit unit(BlankMemory());
    EXPECT_THAT(unit.Feed("a0A000\r", Time{0}), IsEmpty());
}

} // namespace
} // namespace tarvex::unit
