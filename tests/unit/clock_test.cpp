#include "unit/clock.h"

#include <gtest/gtest.h>

namespace tarvex::unit
{
namespace
{

using namespace std::chrono_literals;

TEST(Clock, RunsFromTheFirstSecondOfTheCentury)
{
    const Clock clock;
    EXPECT_EQ(clock.Read(0s), "000101000000");
    EXPECT_EQ(clock.Read(61s), "000101000101");
}

TEST(Clock, ThatWasSetRunsOnByWholeSeconds)
{
    Clock clock;
    EXPECT_TRUE(clock.Set("140423101530", 5'700ms));
    EXPECT_EQ(clock.Read(5'700ms), "140423101530");
    EXPECT_EQ(clock.Read(6'699'999us), "140423101530");
    EXPECT_EQ(clock.Read(6'700ms), "140423101531");
}

TEST(Clock, CarriesIntoEveryField)
{
    Clock clock;
    clock.Set("991231235959", 0s);
    EXPECT_EQ(clock.Read(1s), "000101000000");
    clock.Set("240228235959", 0s);
    EXPECT_EQ(clock.Read(1s), "240229000000");
    clock.Set("230228235959", 0s);
    EXPECT_EQ(clock.Read(1s), "230301000000");
}

TEST(Clock, RefusesWhatIsNoDateAndTimeAndStaysAsItWas)
{
    Clock clock;
    clock.Set("140423101530", 0s);
    for (const auto* digits :
         {"", "2310", "1404231015", "1404231015300", "14042310153x", "140023101530", "141323101530",
          "140400101530", "140431101530", "230229101530", "140423241530", "140423106030",
          "140423101560", "-40423101530", " 40423101530"}) {
        EXPECT_FALSE(clock.Set(digits, 10s)) << digits;
        EXPECT_EQ(clock.Read(0s), "140423101530") << digits;
    }
}

TEST(Clock, ThatIsStoppedHoldsItsTime)
{
    Clock clock;
    clock.Set("140423101530", 0s);
    clock.Stop(10s);
    EXPECT_EQ(clock.Read(100s), "140423101540");
}

TEST(Clock, ThatIsStartedRunsOnFromWhereItStopped)
{
    Clock clock;
    clock.Set("140423101530", 0s);
    clock.Stop(10s);
    clock.Start(100s);
    EXPECT_EQ(clock.Read(105s), "140423101545");
}

TEST(Clock, ThatRunsIsNotTouchedByAStart)
{
    Clock clock;
    clock.Set("140423101530", 0s);
    clock.Start(10'900ms);
    EXPECT_EQ(clock.Read(11s), "140423101541");
}

TEST(Clock, ThatIsSetWhileStoppedStaysStopped)
{
    Clock clock;
    clock.Stop(0s);
    clock.Set("140423101530", 5s);
    EXPECT_EQ(clock.Read(50s), "140423101530");
    clock.Start(60s);
    EXPECT_EQ(clock.Read(62s), "140423101532");
}

} // namespace
} // namespace tarvex::unit
