#include "support.h"

#include "unit/survey.h"
#include "unit/unit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace tarvex::unit
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

const std::string kHeaderFrame = "C0A000MILANO  CANTIER1T12 012514+09007230414101530\r";
const std::string kCalibrationFrame = "D0A000+1.0001-0.0002+1.0003-0.00049\r";

/// The characters at an address, which the unit is asked for over the line.
std::string ReadBack(Unit& unit, const std::string& digits)
{
    return Exchange(unit, "a" + digits + "\r");
}

TEST(UnitWake, IsAnsweredByOneExclamationMark)
{
    Unit unit(BlankMemory());
    EXPECT_THAT(unit.Feed("}", 5us), ElementsAre(Reply{0us, "!", false}));
}

TEST(UnitWake, IsAnsweredEachTime)
{
    Unit unit(BlankMemory());
    EXPECT_EQ(BytesOf(unit.Feed("}}", 0us)), "!!");
}

TEST(UnitRead, AnswersSixteenPairsWithBlanksAndCrLf)
{
    Unit unit(BlankMemory());
    EXPECT_EQ(Exchange(unit, "a0A000\r"), "43 4C 49 45 4E 54 31 31 00 00 00 00 00 00 00 00 \r\n");
}

TEST(UnitRead, WithoutAWakeIsNotAnswered)
{
    Unit unit(BlankMemory());
    EXPECT_THAT(unit.Feed("a0A000\r", 0us), IsEmpty());
    Exchange(unit, "a0A000\r");
    EXPECT_THAT(unit.Feed("a0A010\r", 0us), IsEmpty());
}

TEST(UnitRead, OfAnAddressWithoutMemoryGivesZeros)
{
    Unit unit(BlankMemory());
    const std::string zeros = "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 \r\n";
    EXPECT_EQ(ReadBack(unit, "1E000"), zeros);
    EXPECT_EQ(ReadBack(unit, "FFFF0"), zeros);
}

TEST(UnitRead, OfNoAddressIsNotAnswered)
{
    Unit unit(BlankMemory());
    for (const auto* frame : {"a\r", "a0000\r", "a000000\r", "a0a000\r", "a0000G\r"})
        EXPECT_EQ(Exchange(unit, frame), "") << frame;
    EXPECT_EQ(unit.CountOf(Moment::PageRead), 0);
}

TEST(UnitRead, ChangesNothing)
{
    Unit unit(DemoMemory());
    for (const auto* digits : {"00000", "00080", "000F0", "01100", "1DFF0"})
        ReadBack(unit, digits);
    EXPECT_EQ(unit.StoredMemory(), DemoMemory());
}

TEST(UnitRead, GivesBackTheBytesItGetsInSingleSteps)
{
    Unit unit(BlankMemory());
    std::string replies;
    for (const char byte : std::string("}a00020\r"))
        replies += BytesOf(unit.Feed({&byte, 1}, 0us));
    EXPECT_EQ(replies, "!54 20 20 20 00 00 00 00 00 00 00 00 00 00 00 00 \r\n");
}

TEST(UnitHeaderWrite, IsSilent)
{
    Unit unit(BlankMemory());
    EXPECT_EQ(Exchange(unit, kHeaderFrame), "");
    EXPECT_EQ(unit.CountOf(Moment::Written), 1);
}

TEST(UnitHeaderWrite, PutsEachFieldAtTheStartOfItsPage)
{
    Unit unit(BlankMemory());
    Exchange(unit, kHeaderFrame);
    const auto& memory = unit.StoredMemory();
    EXPECT_EQ(memory.Text(0x0A000, 8), "MILANO  ");
    EXPECT_EQ(memory.Text(0x0A010, 8), "CANTIER1");
    EXPECT_EQ(memory.Text(0x0A020, 4), "T12 ");
    EXPECT_EQ(memory.Text(0x0A030, 4), "0125");
    EXPECT_EQ(memory.Text(0x0A040, 1), "1");
    EXPECT_EQ(memory.Text(0x0A050, 1), "4");
    EXPECT_EQ(memory.Text(0x0A060, 4), "+090");
    EXPECT_EQ(memory.Text(0x0A070, 2), "07");
    EXPECT_EQ(memory.Text(0x0A080, 6), "230414");
    EXPECT_EQ(memory.Text(0x0A090, 6), "101530");
}

TEST(UnitHeaderWrite, ComesBackInPageReads)
{
    Unit unit(BlankMemory());
    Exchange(unit, kHeaderFrame);
    EXPECT_EQ(ReadBack(unit, "0A030"), "30 31 32 35 00 00 00 00 00 00 00 00 00 00 00 00 \r\n");
}

TEST(UnitHeaderWrite, LeavesTheLastTwoBytesOfDateAndTime)
{
    Memory memory;
    memory.Put(0x0A080, "DDMMYYxy");
    memory.Put(0x0A090, "hhmmsszw");
    Unit unit(memory);
    Exchange(unit, kHeaderFrame);
    EXPECT_EQ(unit.StoredMemory().Text(0x0A080, 8), "230414xy");
    EXPECT_EQ(unit.StoredMemory().Text(0x0A090, 8), "101530zw");
}

TEST(UnitHeaderWrite, ErasesNeitherDataNorCalibrationNorOtherBlocks)
{
    Memory full(std::string(kMemoryBytes, '\xA5'));
    Unit unit(full);
    Exchange(unit, kHeaderFrame);
    for (const auto& place : kHeaderPlaces)
        full.Put(0x0A000 + place.page, unit.StoredMemory().Text(0x0A000 + place.page, place.width));
    EXPECT_EQ(unit.StoredMemory(), full);
}

TEST(UnitHeaderWrite, KeepsAnyCharacterOfAField)
{
    Unit unit(BlankMemory());
    auto frame = kHeaderFrame;
    frame.replace(6, 8, std::string("}\r\n\0\xE0\xFF!a", 8));
    Exchange(unit, frame);
    EXPECT_EQ(unit.StoredMemory().Text(0x0A000, 8), std::string("}\r\n\0\xE0\xFF!a", 8));
}

TEST(UnitHeaderWrite, ToAnAddressWithoutMemoryIsLost)
{
    Unit unit(BlankMemory());
    auto frame = kHeaderFrame;
    frame.replace(1, 5, "1E000");
    Exchange(unit, frame);
    frame.replace(1, 5, "0a000");
    Exchange(unit, frame);
    EXPECT_EQ(unit.StoredMemory(), BlankMemory());
}

TEST(UnitHeaderWrite, ThatIsTooShortIsLostAndTheNextWakeIsAnswered)
{
    Unit unit(BlankMemory());
    unit.Feed("}", 0ms);
    EXPECT_THAT(unit.Feed("C0A000MILANO\r", 1ms), IsEmpty());
    EXPECT_EQ(BytesOf(unit.Feed("}", 100ms)), "!");
    EXPECT_EQ(unit.StoredMemory(), BlankMemory());
}

TEST(UnitCalibrationWrite, IsSilentAndKeptWithItsBlock)
{
    Unit unit(BlankMemory());
    EXPECT_EQ(Exchange(unit, kCalibrationFrame), "");
    const auto& memory = unit.StoredMemory();
    EXPECT_EQ(memory.Text(0x0A0A0, 7), "+1.0001");
    EXPECT_EQ(memory.Text(0x0A0B0, 7), "-0.0002");
    EXPECT_EQ(memory.Text(0x0A0C0, 7), "+1.0003");
    EXPECT_EQ(memory.Text(0x0A0D0, 7), "-0.0004");
    EXPECT_EQ(memory.Text(0x0A0E0, 1), "9");
}

TEST(UnitCalibrationWrite, DisturbsNoPageOfHeaderOrData)
{
    Memory full(std::string(kMemoryBytes, '\xA5'));
    Unit unit(full);
    Exchange(unit, kCalibrationFrame);
    const auto& memory = unit.StoredMemory();
    EXPECT_EQ(memory.Text(0x00000, 0x0A0A0), full.Text(0x00000, 0x0A0A0));
    EXPECT_EQ(memory.Text(0x0A0F0, kMemoryBytes - 0x0A0F0),
              full.Text(0x0A0F0, kMemoryBytes - 0x0A0F0));
}

TEST(UnitByteWrite, IsSilentAndKeepsTheValueAtItsAddress)
{
    Unit unit(BlankMemory());
    EXPECT_EQ(Exchange(unit, "b000F05\r"), "");
    EXPECT_EQ(Exchange(unit, "b000F500\r"), "");
    EXPECT_EQ(unit.StoredMemory().Text(0x000F0, 8), std::string("5\0\0\0\0"
                                                                "00\0",
                                                                8));
}

TEST(UnitByteWrite, OfAShorterValueLeavesNothingOfTheLongerOneInSight)
{
    Unit unit(BlankMemory());
    Exchange(unit, "b000F012\r");
    EXPECT_EQ(unit.StoredMemory().Text(0x000F0, 3), std::string("12\0", 3));
    Exchange(unit, "b000F03\r");
    EXPECT_EQ(unit.StoredMemory().Text(0x000F0, 2), std::string("3\0", 2));
}

TEST(UnitByteWrite, LeavesTheHeaderOfTheFirstBlock)
{
    Unit unit(BlankMemory());
    Exchange(unit, "b000F05\r");
    Exchange(unit, "b000F500\r");
    EXPECT_EQ(unit.StoredMemory().Text(0, 0xF0), BlankMemory().Text(0, 0xF0));
    EXPECT_EQ(unit.StoredMemory().Text(0x00100, 0x1000), BlankMemory().Text(0x00100, 0x1000));
}

TEST(UnitByteWrite, WithoutAnAddressIsLost)
{
    Unit unit(BlankMemory());
    EXPECT_EQ(Exchange(unit, "b00\r"), "");
    EXPECT_EQ(unit.StoredMemory(), BlankMemory());
}

TEST(UnitClock, IsReadAsFourteenCharacters)
{
    Unit unit(BlankMemory());
    unit.RunningClock().Set("140423101530", 0s);
    EXPECT_EQ(Exchange(unit, "H\r", 4s), "140423101534\r\n");
}

TEST(UnitClock, IsSetInSilenceAndRuns)
{
    Unit unit(BlankMemory());
    EXPECT_EQ(Exchange(unit, "G161126093015\r", 1s), "");
    EXPECT_EQ(Exchange(unit, "H\r", 3s), "161126093017\r\n");
}

TEST(UnitClock, KeepsItsTimeWhenTheFrameIsShort)
{
    Unit unit(BlankMemory());
    Exchange(unit, "G161126093015\r", 1s);
    EXPECT_EQ(Exchange(unit, "G2310\r", 1s), "");
    EXPECT_EQ(Exchange(unit, "H\r", 1s), "161126093015\r\n");
}

TEST(UnitClock, ThatIsStoppedRunsFromItsStartFrame)
{
    Unit unit(BlankMemory());
    unit.RunningClock().Stop(0s);
    Exchange(unit, "G161126093015\r", 1s);
    EXPECT_EQ(Exchange(unit, "H\r", 9s), "161126093015\r\n");
    EXPECT_EQ(Exchange(unit, "c\r", 10s), "");
    EXPECT_EQ(Exchange(unit, "H\r", 12s), "161126093017\r\n");
}

TEST(UnitClock, IsNotTouchedByFramesWithMoreThanTheirLetter)
{
    Unit unit(BlankMemory());
    unit.RunningClock().Stop(0s);
    EXPECT_EQ(Exchange(unit, "Hx\r", 0s), "");
    EXPECT_EQ(Exchange(unit, "cx\r", 0s), "");
    EXPECT_EQ(Exchange(unit, "H\r", 5s), "000101000000\r\n");
}

TEST(UnitCounts, RunSeparatelyFromTheStart)
{
    Unit unit(BlankMemory());
    Exchange(unit, "a00000\r");
    Exchange(unit, "a00010\r");
    Exchange(unit, "H\r");
    Exchange(unit, "b000F500\r");
    EXPECT_EQ(unit.CountOf(Moment::Woken), 4);
    EXPECT_EQ(unit.CountOf(Moment::PageRead), 2);
    EXPECT_EQ(unit.CountOf(Moment::ClockRead), 1);
    EXPECT_EQ(unit.CountOf(Moment::Written), 1);
}

TEST(UnitListener, HearsEverythingInOrderWithItsTime)
{
    Unit unit(BlankMemory());
    std::vector<std::pair<std::string, Time>> heard;
    unit.SetListener([&](const Heard& what, Time at) { heard.emplace_back(what.bytes, at); });
    unit.Feed("x}", 1ms);
    unit.Feed("H\r", 2ms);
    EXPECT_THAT(heard, ElementsAre(std::pair("x", 1ms), std::pair("}", 1ms), std::pair("H", 2ms)));
}

TEST(UnitFault, OfAnUnansweredWakeLeavesItAsleep)
{
    Unit unit(BlankMemory(), {ParseFault("silent@wake2")});
    EXPECT_EQ(Exchange(unit, "H\r").size(), 14U);
    EXPECT_THAT(unit.Feed("}H\r", 0s), IsEmpty());
    EXPECT_EQ(Exchange(unit, "H\r").size(), 14U);
}

TEST(UnitFault, OfAHangUpEndsEverything)
{
    Unit unit(BlankMemory(), {ParseFault("hangup@page2:20")});
    EXPECT_EQ(Exchange(unit, "a00000\r").size(), 50U);
    unit.Feed("}", 0s);
    EXPECT_THAT(unit.Feed("a00000\r}", 0s),
                ElementsAre(Reply{0us, "43 4C 49 45 4E 54 20", false}, Reply{20ms, "", true}));
    EXPECT_THAT(unit.Feed("}}H\r", 1s), IsEmpty());
}

TEST(UnitFault, OfAStrayByteComesAfterTheWriteThatIsStillStored)
{
    Unit unit(BlankMemory(), {ParseFault("stray@write2:30")});
    EXPECT_EQ(Exchange(unit, "b000F05\r"), "");
    unit.Feed("}", 0s);
    EXPECT_THAT(unit.Feed("b000F500\r", 0s), ElementsAre(Reply{30ms, "?", false}));
    EXPECT_EQ(unit.StoredMemory().Text(0x000F5, 2), "00");
}

TEST(Unit, IsWokenAfterAnyGarbage)
{
    // The same garbage in every run. NOLINTNEXTLINE(cert-msc32-c,cert-msc51-cpp)
    std::mt19937 random(20140423);
    const std::string likely = "}abcCDGH0123456789ABCDEF\r\n";
    Unit unit(DemoMemory());
    for (int round = 0; round < 2'000; ++round) {
        std::string garbage;
        for (auto length = random() % 120U; length > 0; --length)
            garbage += random() % 4U == 0 ? static_cast<char>(random() % 256U)
                                          : likely[random() % likely.size()];
        unit.Feed(garbage, std::chrono::seconds{round});
        ASSERT_EQ(Exchange(unit, "a1E000\r", std::chrono::seconds{round} + 500ms),
                  "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 \r\n")
            << round;
    }
    EXPECT_EQ(unit.StoredMemory().Image().size(), kMemoryBytes);
}

} // namespace
} // namespace tarvex::unit
