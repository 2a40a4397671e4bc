#include "conversation/followed_commands.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Progress = FollowedCommands;

TEST_F(Progress, OfReadBlockIsTenPages)
{
    Read();
    EXPECT_EQ(told, Counted(10, 10));
    EXPECT_FALSE(Told().UnderWay());
}

TEST_F(Progress, OfReadAllBlocksIsThreeHundredPages)
{
    PressReadAllBlocks(*this);
    EXPECT_EQ(told, Counted(300, 300));
}

TEST_F(Progress, OfADownloadIsTheHeadersPagesAndThenThoseOfTheDepth)
{
    Download();
    EXPECT_EQ(told, Counted(10, 250) + Counted(13, 13, 10));
}

struct Depth {
    std::string name;
    std::string depth;
    std::string step;
    int pages;
};

class ProgressOfDepth : public FollowedCommands, public ::testing::WithParamInterface<Depth>
{
};

TEST_P(ProgressOfDepth, IsFullWhenTheLastPageIsRead)
{
    SetSurvey(unit, 0, GetParam().depth, GetParam().step, "2");
    Download();
    EXPECT_EQ(unit.reads, 10 + GetParam().pages);
    EXPECT_EQ(Told().Now(), (ExchangeCount{unit.reads, unit.reads}));
}

INSTANTIATE_TEST_SUITE_P(Table, ProgressOfDepth,
                         ::testing::Values(Depth{"WholeSteps", "1000", "1", 100},
                                           Depth{"HalfSteps", "1000", "0", 200},
                                           Depth{"Remainder", "0023", "1", 3},
                                           Depth{"NoTube", "0000", "1", 0},
                                           Depth{"NoNumber", "DEEP", "1", 0},
                                           Depth{"DeeperThanTheMemory", "9999", "0", 240}),
                         RowName());

TEST_F(Progress, OfSetAllIsThirtyHeadersAndTheClosing)
{
    boxes.ExpectQuestion(kBlockQuestion, true);
    PressSetAll(*this);
    EXPECT_EQ(told, Counted(31, 31));
}

TEST_F(Progress, OfTotalResetIsThirtyHeadersAndTheClosing)
{
    boxes.ExpectQuestion(kBlockQuestion, true);
    PressTotalReset(*this);
    EXPECT_EQ(told, Counted(31, 31));
}

TEST_F(Progress, OfResetGainAndZeroIsThirtyCalibrations)
{
    boxes.ExpectQuestion(kGainZeroQuestion, true);
    PressResetGainZero(*this);
    EXPECT_EQ(told, Counted(30, 30));
}

TEST_F(Progress, OfOneBlocksWritingIsItsHeaderAndTheClosing)
{
    boxes.ExpectQuestion(kBlocksQuestion, true);
    PressSetBlock(*this);
    boxes.ExpectQuestion(kBlockQuestion, true);
    PressResetBlock(*this);
    EXPECT_EQ(told, Counted(2, 2) + Counted(2, 2));
}

TEST_F(Progress, OfTheSettingsIsOneExchange)
{
    ReadTheClock();
    WriteTheDelay();
    boxes.ExpectQuestion("ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?", true);
    ClickLink([&](DeviceLink& link) { StartClock(link, view); });
    EXPECT_EQ(told, Counted(1, 1) + Counted(1, 1) + Counted(1, 1));
}

TEST_F(Progress, OfWritingTheClockIsOneExchange)
{
    panel.clock.day.SetText("23");
    panel.clock.hours.SetText("10");
    boxes.ExpectQuestion("ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?", true);
    ClickLink([&](DeviceLink& link) { WriteClock(panel.clock, link, view); });
    EXPECT_EQ(told, Counted(1, 1));
}

TEST_F(Progress, BeginsBeforeTheIndicatorIsShownAndStaysUntilItIsHidden)
{
    Read();
    std::vector<ExchangeCount> shown;
    panel.waitIndicator.ground.Watch([&] { shown.push_back(Told().Now()); });
    Read();
    EXPECT_THAT(shown, ElementsAre(ExchangeCount{10, 0}, ExchangeCount{10, 10}));
}

TEST_F(Progress, StaysWhereASilentUnitLeftItUntilTheIndicatorIsHidden)
{
    MissWake(7);
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected, [&] { EXPECT_EQ(Told().Now(), (ExchangeCount{31, 6})); });
    PressSetAll(*this);
    EXPECT_EQ(told, Counted(6, 31)) << "a wake with a limit never stalls";
}

TEST_F(Progress, StaysOnTheIndicatorThatTheLastFailureLeavesOnView)
{
    MissWake(31);
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected);
    PressTotalReset(*this);
    EXPECT_TRUE(panel.waitIndicator.ground.Visible());
    EXPECT_EQ(Told().Now(), (ExchangeCount{31, 30}));
    EXPECT_FALSE(Told().UnderWay());
}

TEST_F(Progress, LeavesAGapForAPageThatIsPassedOver)
{
    unit.answerWake = [](int wake) { return wake == 4 ? "?" : "!"; };
    Read();
    EXPECT_EQ(told, Counted(9, 10));
}

TEST_F(Progress, LeavesAGapForAHeaderThatTheUnitWasNotReadyFor)
{
    unit.answerWake = [](int wake) { return wake == 4 ? "!!" : "!"; };
    boxes.ExpectQuestion(kBlockQuestion, true);
    PressSetAll(*this);
    EXPECT_EQ(told, Counted(30, 31));
}

TEST_F(Progress, StaysEmptyWithoutAPort)
{
    port.refused.insert(1);
    Read();
    Download();
    boxes.ExpectQuestion(kBlockQuestion, true);
    PressSetAll(*this);
    EXPECT_THAT(told, ElementsAre("0/10", "0/250", "0/10", "0/31"));
}

TEST_F(Progress, StaysEmptyForABlockThatHasNoPlace)
{
    panel.blockNumber.SetText("99");
    boxes.ExpectQuestion(kBlocksQuestion, true);
    PressSetBlock(*this);
    EXPECT_EQ(told, Counted(1, 2)) << "the closing alone went out";
}

TEST_F(Progress, DoesNotBeginWhenTheOperatorSaysNo)
{
    boxes.ExpectQuestion(kBlockQuestion, false);
    PressSetAll(*this);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(Progress, OfARepeatedBlockIsNeverMoreThanFull)
{
    PressAt(29 * 200 + 150, [&] { Click([&] { state.currentBlock -= 3; }); });
    boxes.ExpectQuestion(kGainZeroQuestion, true);
    PressResetGainZero(*this);
    EXPECT_EQ(Told().Now(), (ExchangeCount{30, 33}));
    EXPECT_EQ(Told().Now().Share(), 1);
}

} // namespace
} // namespace tarvex::tests
