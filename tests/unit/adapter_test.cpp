#include "unit/adapter.h"

#include "unit/block_header.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::unit
{
namespace
{

using testing::ElementsAre;
using namespace std::chrono_literals;

constexpr const char* kPageFrame = "a0A000\r";
constexpr const char* kPage = "43 4C 49 45 4E 54 31 31 00 00 00 00 00 00 00 00 \r\n";

/// Serves the line until it is at rest; returns what came, each packet with its moment.
std::vector<std::pair<Time, std::string>> Serve(Adapter& adapter, Time late = 0us)
{
    std::vector<std::pair<Time, std::string>> packets;
    while (const auto due = adapter.NextDue()) {
        const auto delivery = adapter.Deliver(*due + late);
        if (!delivery.bytes.empty()) packets.emplace_back(*due + late, delivery.bytes);
        if (delivery.hangUp) packets.emplace_back(*due + late, "(hang-up)");
    }
    return packets;
}

/// A unit, its line and an adapter before it.
struct AdapterLine {
    explicit AdapterLine(std::optional<Time> timer, Pace pace = Pace::Line,
                         std::vector<Fault> faults = {})
        : unit(BlankMemory(), std::move(faults)), pacer(unit, pace), adapter(pacer, timer)
    {
    }
    Unit unit;
    Pacer pacer;
    Adapter adapter;
};

TEST(Adapter, HoldsAByteUntilItsTimerRunsOut)
{
    AdapterLine line(16ms);
    line.adapter.Receive("}", 0s);
    EXPECT_THAT(Serve(line.adapter), ElementsAre(std::pair(16ms, "!")));
}

TEST(Adapter, LetsItsTimerRunOverAnEmptyBuffer)
{
    AdapterLine line(16ms);
    line.adapter.Receive("}", 30ms);
    EXPECT_THAT(Serve(line.adapter), ElementsAre(std::pair(48ms, "!")));
    line.adapter.Receive("}", 50ms);
    EXPECT_THAT(Serve(line.adapter), ElementsAre(std::pair(64ms, "!")));
}

TEST(Adapter, GathersAPageInPacketsOfItsTimer)
{
    AdapterLine line(16ms);
    line.adapter.Receive("}", 0s);
    Serve(line.adapter);
    line.adapter.Receive(kPageFrame, 16ms);
    const auto packets = Serve(line.adapter);
    ASSERT_EQ(packets.size(), 5U);
    EXPECT_EQ(packets.front(), std::pair(32ms + 0us, std::string("43 4C ")));
    EXPECT_EQ(packets.back().first, 96ms);
    std::string page;
    for (const auto& packet : packets)
        page += packet.second;
    EXPECT_EQ(page, kPage);
}

TEST(Adapter, HandsOverAFullPacketAtOnceAndRestartsItsTimer)
{
    AdapterLine line(16ms, Pace::Fast);
    line.adapter.Receive("}", 0s);
    Serve(line.adapter);
    line.adapter.Receive("a0A000\r}a0A000\r", 20ms);
    const auto packets = Serve(line.adapter);
    ASSERT_EQ(packets.size(), 2U);
    EXPECT_EQ(packets[0].first, 20ms);
    EXPECT_EQ(packets[0].second.size(), 62U);
    EXPECT_EQ(packets[1].first, 36ms);
    EXPECT_EQ(packets[0].second + packets[1].second, std::string(kPage) + "!" + kPage);
}

/// Time of page reads with a manager that writes as soon as it sees a reply, for each of them.
Time PageTime(Time timer, Time late)
{
    constexpr int kPages = 210;
    AdapterLine line(timer);
    Time now = 0s;
    for (int i = 0; i < kPages; ++i)
        for (const auto* frame : {"}", kPageFrame}) {
            line.adapter.Receive(frame, now);
            now = Serve(line.adapter, late).back().first;
        }
    return now / kPages;
}

TEST(Adapter, MakesAPageOfSixtyEightMillisecondsTakeNinetySix)
{
    EXPECT_NEAR(static_cast<double>(PageTime(16ms, 0us).count()), 96'000, 1);
    EXPECT_NEAR(static_cast<double>(PageTime(1ms, 0us).count()), 69'000, 1);
}

TEST(Adapter, DoesNotAddUpTheLatenessOfItsCaller)
{
    EXPECT_NEAR(static_cast<double>(PageTime(16ms, 900us).count()), 96'000, 10);
}

TEST(Adapter, DoesNotAddUpTheTimeThatItsCallerTakesBeforeItWrites)
{
    for (const bool isThere : {true, false}) {
        Unit unit(BlankMemory());
        Pacer line(unit, Pace::Line);
        Adapter adapter(line, isThere ? std::optional<Time>(16ms) : std::nullopt);
        adapter.Receive("}", 0s);
        const auto due = isThere ? 16ms : 2'292us;
        EXPECT_EQ(adapter.Deliver(due + 40us).bytes, "!");
        adapter.Delay(20us);
        adapter.Receive("}", due + 60us);
        EXPECT_EQ(line.NextDue(), due + 1'146us) << isThere;
    }
}

TEST(Adapter, CatchesUpAfterALongSleep)
{
    AdapterLine line(16ms);
    line.adapter.Receive("}a0A000\r", 0s);
    EXPECT_EQ(line.adapter.Deliver(10s).bytes, std::string("!") + kPage);
    EXPECT_EQ(line.adapter.NextDue(), std::nullopt);
}

TEST(Adapter, HandsOverWhatWaitsWhenTheLineGoesAway)
{
    AdapterLine line(16ms, Pace::Fast, {ParseFault("hangup@page1:2")});
    line.adapter.Receive("}", 0s);
    Serve(line.adapter);
    line.adapter.Receive(kPageFrame, 16ms);
    EXPECT_THAT(Serve(line.adapter),
                ElementsAre(std::pair(32ms, "43"), std::pair(36ms, "(hang-up)")));
}

TEST(Adapter, WithoutATimerIsTheLineItself)
{
    AdapterLine line(std::nullopt);
    line.adapter.Receive("}", 1s);
    EXPECT_THAT(Serve(line.adapter), ElementsAre(std::pair(1s + 2'292us, "!")));
}

} // namespace
} // namespace tarvex::unit
