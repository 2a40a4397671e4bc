#include "unit/block_header.h"
#include "unit/pacer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::unit
{
namespace
{

using testing::ElementsAre;
using namespace std::chrono_literals;

/// Serves the line on time until it is at rest; returns what came, each piece with its moment.
std::vector<std::pair<Time, std::string>> Serve(Pacer& pacer, Time late = 0us)
{
    std::vector<std::pair<Time, std::string>> pieces;
    while (const auto due = pacer.NextDue()) {
        const auto delivery = pacer.Deliver(*due + late);
        if (!delivery.bytes.empty()) pieces.emplace_back(*due + late, delivery.bytes);
        if (delivery.hangUp) pieces.emplace_back(*due + late, "(hang-up)");
    }
    return pieces;
}

std::string Joined(const std::vector<std::pair<Time, std::string>>& pieces)
{
    std::string bytes;
    for (const auto& piece : pieces)
        bytes += piece.second;
    return bytes;
}

TEST(RunTime, IsElevenBitsACharacterAtNineThousandSixHundredBaud)
{
    EXPECT_EQ(RunTime(Pace::Line, 0), 0us);
    EXPECT_EQ(RunTime(Pace::Line, 1), 1'146us);
    EXPECT_EQ(RunTime(Pace::Line, 2), 2'292us);
    EXPECT_EQ(RunTime(Pace::Line, 50), 57'292us);
    EXPECT_EQ(RunTime(Pace::Line, 59), 67'604us);
    EXPECT_EQ(RunTime(Pace::Line, 12'390), 14'196'875us);
    EXPECT_EQ(RunTime(Pace::Fast, 12'390), 0us);
}

TEST(Track, CarriesARunWithoutAddingUpRoundings)
{
    Track track(Pace::Line);
    Time arrived{0};
    for (int i = 0; i < 9'600; ++i)
        arrived = track.Carry(100us);
    EXPECT_EQ(arrived, 11s + 100us);
    EXPECT_EQ(track.Free(), arrived);
}

TEST(Track, StartsACharacterWhenItIsFreeOrLater)
{
    Track track(Pace::Line);
    EXPECT_EQ(track.Carry(10ms), 11'146us);
    EXPECT_EQ(track.Carry(10'500us), 12'292us);
    EXPECT_EQ(track.Carry(20ms), 21'146us);
}

TEST(Pacer, AtRestHasNothingDue)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Line);
    EXPECT_EQ(pacer.NextDue(), std::nullopt);
    EXPECT_EQ(pacer.Deliver(1s).bytes, "");
}

TEST(Pacer, LetsTheUnitHearAWakeWhenItHasArrivedWhole)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Line);
    pacer.Receive("}", 1s);
    EXPECT_EQ(pacer.NextDue(), 1s + 1'146us);
    pacer.Deliver(1s + 1'145us);
    EXPECT_EQ(unit.CountOf(Moment::Woken), 0);
    pacer.Deliver(1s + 1'146us);
    EXPECT_EQ(unit.CountOf(Moment::Woken), 1);
}

TEST(Pacer, HandsOverTheAnswerWhenItHasLeftWhole)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Line);
    pacer.Receive("}", 1s);
    EXPECT_THAT(Serve(pacer), ElementsAre(std::pair(1s + 2'292us, "!")));
}

TEST(Pacer, SleepsThroughAFrameUntilItsEnd)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Line);
    pacer.Receive("}", 0s);
    Serve(pacer);
    pacer.Receive("a00000\r", 1s);
    EXPECT_EQ(pacer.NextDue(), 1s + 8'021us);
}

TEST(Pacer, StillHearsBytesThatEndNothing)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Line);
    pacer.Receive("xyz", 0s);
    EXPECT_EQ(pacer.NextDue(), 3'438us);
    EXPECT_EQ(Joined(Serve(pacer)), "");
    EXPECT_EQ(pacer.NextDue(), std::nullopt);
}

TEST(Pacer, SendsAPageCharacterByCharacter)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Line);
    pacer.Receive("}", 0s);
    Serve(pacer);
    pacer.Receive("a0A000\r", 10ms);
    const auto pieces = Serve(pacer);
    ASSERT_EQ(pieces.size(), 50U);
    EXPECT_EQ(Joined(pieces), "43 4C 49 45 4E 54 31 31 00 00 00 00 00 00 00 00 \r\n");
    const auto heard = 10ms + 8'021us;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        EXPECT_EQ(pieces[i].first, heard + RunTime(Pace::Line, static_cast<std::int64_t>(i) + 1));
}

/// Line time of 210 page reads with a manager that writes as soon as it sees a reply.
Time Download(Pacer& pacer, Time late)
{
    Time now = 1s;
    for (int i = 0; i < 210; ++i)
        for (const auto* frame : {"}", "a0A000\r"}) {
            pacer.Receive(frame, now);
            now = Serve(pacer, late).back().first;
        }
    return now - 1s;
}

TEST(Pacer, TakesFourteenSecondsForADownloadOfTwoHundredAndTenPages)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Line);
    const auto taken = Download(pacer, 0us);
    EXPECT_NEAR(static_cast<double>(taken.count()), 14'196'875.0, 300.0);
}

TEST(Pacer, DoesNotAddUpTheLatenessOfItsCaller)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Line);
    const auto taken = Download(pacer, 900us);
    EXPECT_NEAR(static_cast<double>(taken.count()), 14'196'875.0 + 900.0, 300.0);
}

TEST(Pacer, DoesNotAddUpTheTimeThatItsCallerTakesBeforeItWrites)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Line);
    pacer.Receive("}", 1s);
    const auto due = 1s + 2'292us;
    EXPECT_EQ(pacer.Deliver(due + 40us).bytes, "!");
    pacer.Delay(20us);
    pacer.Receive("}", due + 60us);
    EXPECT_EQ(pacer.NextDue(), due + 1'146us);
}

TEST(Pacer, CatchesUpWithOneDeliveryAfterALongSleep)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Line);
    pacer.Receive("}a0A000\r", 0s);
    EXPECT_EQ(pacer.Deliver(10s).bytes, "!43 4C 49 45 4E 54 31 31 00 00 00 00 00 00 00 00 \r\n");
    EXPECT_EQ(pacer.NextDue(), std::nullopt);
}

TEST(Pacer, WithoutPaceDeliversAtTheMomentOfTheWriting)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Fast);
    pacer.Receive("}", 7us);
    EXPECT_EQ(pacer.NextDue(), 7us);
    EXPECT_EQ(pacer.Deliver(7us).bytes, "!");
    pacer.Receive("a1E000\r", 9us);
    EXPECT_EQ(pacer.Deliver(9us).bytes, "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 \r\n");
}

TEST(Pacer, HoldsALateAnswerBack)
{
    for (const auto pace : {Pace::Line, Pace::Fast}) {
        Unit unit(BlankMemory(), {ParseFault("late@wake1:700")});
        Pacer pacer(unit, pace);
        pacer.Receive("}", 0s);
        const auto heard = RunTime(pace, 1);
        EXPECT_THAT(Serve(pacer), ElementsAre(std::pair(heard + 700ms + RunTime(pace, 1), "!")));
    }
}

TEST(Pacer, KeepsTheOrderWhenAWakeOvertakesALateAnswer)
{
    Unit unit(BlankMemory(), {ParseFault("late@wake1:700")});
    Pacer pacer(unit, Pace::Fast);
    pacer.Receive("}", 0s);
    EXPECT_EQ(pacer.Deliver(0s).bytes, "");
    pacer.Receive("}", 650ms);
    EXPECT_EQ(pacer.Deliver(650ms).bytes, "");
    EXPECT_EQ(pacer.Deliver(700ms).bytes, "!!");
}

TEST(Pacer, SendsAStrayByteInTheSettlingOfAWrite)
{
    Unit unit(BlankMemory(), {ParseFault("stray@write1:30")});
    Pacer pacer(unit, Pace::Fast);
    pacer.Receive("}b000F500\r", 1s);
    EXPECT_THAT(Serve(pacer), ElementsAre(std::pair(1s, "!"), std::pair(1s + 30ms, "?")));
}

TEST(Pacer, CountsTheStrayBytesPauseFromTheEndOfTheAnswer)
{
    Unit unit(BlankMemory(), {ParseFault("stray@wake1:30")});
    Pacer pacer(unit, Pace::Line);
    pacer.Receive("}", 0s);
    EXPECT_THAT(Serve(pacer), ElementsAre(std::pair(2'292us, "!"), std::pair(33'438us, "?")));
}

TEST(Pacer, HangsUpInMidPageAndIsDeadThen)
{
    Unit unit(BlankMemory(), {ParseFault("hangup@page1:2")});
    Pacer pacer(unit, Pace::Fast);
    pacer.Receive("}a0A000\r", 0s);
    EXPECT_THAT(Serve(pacer), ElementsAre(std::pair(0s, "!43"), std::pair(20ms, "(hang-up)")));
    pacer.Receive("}", 1s);
    EXPECT_EQ(pacer.NextDue(), std::nullopt);
    EXPECT_EQ(pacer.Deliver(2s).bytes, "");
}

TEST(Pacer, ReportsAReplyToItsListenerWhenItHasLeft)
{
    Unit unit(BlankMemory());
    Pacer pacer(unit, Pace::Line);
    std::vector<std::pair<std::string, Time>> said;
    pacer.SetListener([&](const Reply& reply, Time at) { said.emplace_back(reply.bytes, at); });
    pacer.Receive("}", 0s);
    pacer.Deliver(2'291us);
    EXPECT_TRUE(said.empty());
    Serve(pacer);
    EXPECT_THAT(said, ElementsAre(std::pair("!", 2'292us)));
}

} // namespace
} // namespace tarvex::unit
