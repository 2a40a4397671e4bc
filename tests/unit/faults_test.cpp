#include "unit/faults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace tarvex::unit
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace std::chrono_literals;

constexpr std::string_view kPage = "43 4C 49 45 4E 54 31 31 00 00 00 00 00 00 00 00 \r\n";

/// What a unit with the one fault does at the moment's `count`-th time.
std::vector<Reply> With(std::string_view fault, Moment moment, int count, std::string_view answer)
{
    return ApplyFaults({ParseFault(fault)}, moment, count, answer);
}

std::string PageWith(std::string_view fault)
{
    const auto replies = With(fault, Moment::PageRead, 1, kPage);
    return replies.size() == 1 ? replies.front().bytes : "(not one reply)";
}

const Reply kReady{0us, "!", false};

TEST(ApplyFaults, GivesTheHealthyAnswerWhenThereAreNone)
{
    EXPECT_THAT(ApplyFaults({}, Moment::Woken, 1, "!"), ElementsAre(kReady));
    EXPECT_THAT(ApplyFaults({}, Moment::Written, 1, ""), IsEmpty());
}

TEST(ApplyFaults, TouchesOnlyTheMomentAndCountThatTheFaultNames)
{
    EXPECT_THAT(With("silent@wake2", Moment::Woken, 1, "!"), ElementsAre(kReady));
    EXPECT_THAT(With("silent@wake2", Moment::Woken, 2, "!"), IsEmpty());
    EXPECT_THAT(With("silent@wake2", Moment::Woken, 3, "!"), ElementsAre(kReady));
    EXPECT_THAT(With("silent@page2", Moment::Woken, 2, "!"), ElementsAre(kReady));
}

TEST(ApplyFaults, GoesOnFromTheCountOfAFaultWithPlus)
{
    EXPECT_THAT(With("silent@wake2+", Moment::Woken, 1, "!"), ElementsAre(kReady));
    EXPECT_THAT(With("silent@wake2+", Moment::Woken, 2, "!"), IsEmpty());
    EXPECT_THAT(With("silent@wake2+", Moment::Woken, 300, "!"), IsEmpty());
}

TEST(ApplyFaults, SendsAWrongAnswerInsteadOfTheRightOne)
{
    EXPECT_THAT(With("wrong@wake1", Moment::Woken, 1, "!"), ElementsAre(Reply{0us, "?", false}));
    EXPECT_THAT(With("wrong@wake1:!\\r", Moment::Woken, 1, "!"),
                ElementsAre(Reply{0us, "!\r", false}));
}

TEST(ApplyFaults, DoublesTheAnswer)
{
    EXPECT_THAT(With("double@wake1", Moment::Woken, 1, "!"), ElementsAre(Reply{0us, "!!", false}));
}

TEST(ApplyFaults, DelaysALateAnswerByItsMilliseconds)
{
    EXPECT_THAT(With("late@wake1:450", Moment::Woken, 1, "!"),
                ElementsAre(Reply{450ms, "!", false}));
    EXPECT_THAT(With("late@wake1", Moment::Woken, 1, "!"), ElementsAre(Reply{700ms, "!", false}));
}

TEST(ApplyFaults, CutsAShortPage)
{
    EXPECT_EQ(PageWith("short@page1"), kPage.substr(0, 49));
    EXPECT_EQ(PageWith("short@page1:20"), kPage.substr(0, 20));
    EXPECT_THAT(With("short@page1:0", Moment::PageRead, 1, kPage), IsEmpty());
}

TEST(ApplyFaults, LengthensALongPage)
{
    EXPECT_EQ(PageWith("long@page1"), std::string(kPage) + "?");
    EXPECT_EQ(PageWith("long@page1:3"), std::string(kPage) + "???");
}

TEST(ApplyFaults, GarblesTheDigitsOfOnePairOrOfAll)
{
    EXPECT_EQ(PageWith("garbled@page1:0"), "?? 4C 49 45 4E 54 31 31 00 00 00 00 00 00 00 00 \r\n");
    EXPECT_EQ(PageWith("garbled@page1:15"), "43 4C 49 45 4E 54 31 31 00 00 00 00 00 00 00 ?? \r\n");
    EXPECT_EQ(PageWith("garbled@page1"), "?? ?? ?? ?? ?? ?? ?? ?? ?? ?? ?? ?? ?? ?? ?? ?? \r\n");
}

TEST(ApplyFaults, WritesDigitsInLowerCase)
{
    EXPECT_EQ(PageWith("lower@page1"), "43 4c 49 45 4e 54 31 31 00 00 00 00 00 00 00 00 \r\n");
}

TEST(ApplyFaults, PutsAStrayCharacterBeforeTheAnswer)
{
    EXPECT_EQ(PageWith("shifted@page1"), "?" + std::string(kPage));
    EXPECT_THAT(With("shifted@wake1", Moment::Woken, 1, "!"), ElementsAre(Reply{0us, "?!", false}));
}

TEST(ApplyFaults, SendsAStrayByteAfterAWrite)
{
    EXPECT_THAT(With("stray@write1", Moment::Written, 1, ""), ElementsAre(Reply{20ms, "?", false}));
}

TEST(ApplyFaults, SendsAStrayByteAfterAnAnswer)
{
    EXPECT_THAT(With("stray@wake1:5", Moment::Woken, 1, "!"),
                ElementsAre(kReady, Reply{5ms, "?", false}));
}

TEST(ApplyFaults, HangsUpAtOnceOrAfterSomeCharacters)
{
    EXPECT_THAT(With("hangup@wake1", Moment::Woken, 1, "!"), ElementsAre(Reply{0us, "", true}));
    EXPECT_THAT(With("hangup@write1", Moment::Written, 1, ""), ElementsAre(Reply{0us, "", true}));
    EXPECT_THAT(With("hangup@page1:2", Moment::PageRead, 1, kPage),
                ElementsAre(Reply{0us, "43", false}, Reply{20ms, "", true}));
}

TEST(ApplyFaults, AppliesSeveralInTheirOrder)
{
    const std::vector<Fault> faults{ParseFault("lower@page1+"), ParseFault("late@page2:10"),
                                    ParseFault("short@page2:8"), ParseFault("late@page2:5")};
    EXPECT_THAT(ApplyFaults(faults, Moment::PageRead, 2, kPage),
                ElementsAre(Reply{15ms, "43 4c 49", false}));
}

struct GoodText {
    const char* text;
    Fault fault;
};

TEST(ParseFault, ReadsEveryForm)
{
    const GoodText rows[] = {
        {"silent@wake3+", {Trouble::Silent, Moment::Woken, 3, true, {}, ""}},
        {"silent@page1", {Trouble::Silent, Moment::PageRead, 1, false, {}, ""}},
        {"wrong@wake12", {Trouble::Wrong, Moment::Woken, 12, false, {}, "?"}},
        {"wrong@wake1:a@:\\x00+", {Trouble::Wrong, Moment::Woken, 1, false, {}, {"a@:\0+", 5}}},
        {"wrong@clock1:", {Trouble::Wrong, Moment::ClockRead, 1, false, {}, ""}},
        {"double@wake2", {Trouble::Double, Moment::Woken, 2, false, {}, ""}},
        {"late@clock1+:0", {Trouble::Late, Moment::ClockRead, 1, true, 0, ""}},
        {"late@wake1:600000", {Trouble::Late, Moment::Woken, 1, false, 600'000, ""}},
        {"short@page5:49", {Trouble::Short, Moment::PageRead, 5, false, 49, ""}},
        {"long@page5", {Trouble::Long, Moment::PageRead, 5, false, {}, ""}},
        {"garbled@page2:15", {Trouble::Garbled, Moment::PageRead, 2, false, 15, ""}},
        {"lower@page1+", {Trouble::Lower, Moment::PageRead, 1, true, {}, ""}},
        {"shifted@page1", {Trouble::Shifted, Moment::PageRead, 1, false, {}, ""}},
        {"stray@write31", {Trouble::Stray, Moment::Written, 31, false, {}, ""}},
        {"hangup@page4:20", {Trouble::HangUp, Moment::PageRead, 4, false, 20, ""}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ParseFault(row.text), row.fault) << row.text;
}

TEST(ParseFault, RefusesEveryOtherText)
{
    for (const auto* text : {"",
                             "silent",
                             "@wake1",
                             "silent@",
                             "silent@1",
                             "silent@wake",
                             "silent@wake0",
                             "silent@wake-1",
                             "silent@wake1x",
                             "silent@wake1++",
                             "silent@wake1:3",
                             "Silent@wake1",
                             "silent @wake1",
                             "silent@write1",
                             "short@wake1",
                             "lower@clock1",
                             "garbled@wake1",
                             "garbled@page1:16",
                             "garbled@page1:x",
                             "late@write1",
                             "late@wake1:",
                             "late@wake1:-5",
                             "late@wake1:5ms",
                             "late@wake1:600001",
                             "short@page1:51",
                             "hangup@page1:51",
                             "wrong@wake1:\\q",
                             "wrong@write1",
                             "stray@write99999999999999999999",
                             "late@wake9999999"})
        EXPECT_THROW(ParseFault(text), std::invalid_argument) << text;
}

TEST(ParseFault, NamesTheTextThatItRefusesAndSaysWhy)
{
    try {
        ParseFault("deaf@wake1");
        FAIL() << "parsed";
    } catch (const std::invalid_argument& error) {
        EXPECT_THAT(error.what(), HasSubstr("\"deaf@wake1\": no such trouble"));
    }
}

} // namespace
} // namespace tarvex::unit
