#include "blocks/block_commands.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::IsEmpty;

std::vector<std::string> DefaultTable()
{
    std::vector<std::string> records;
    for (int number = 1; number <= 30; ++number)
        records.push_back(DefaultRecord(number));
    return records;
}

/// What goes out when the first `count` headers do.
std::vector<std::string> HeadersOut(int count)
{
    std::vector<std::string> sent;
    for (int index = 0; index < count; ++index)
        sent.insert(sent.end(), {"}", HeaderFrame(index, DefaultRecord(index + 1))});
    return sent;
}

std::vector<std::string> AllOut()
{
    std::vector<std::string> sent = HeadersOut(30);
    sent.insert(sent.end(), {"}", "b000F500\r"});
    return sent;
}

/// The panel shows record 3 of the own table with another client; the operator has then typed
/// block 7.
class TotalResetTest : public LogicTest
{
protected:
    TotalResetTest()
    {
        OpenOwnTableAt(*this, 3);
        panel.header[Client].SetText("VERDI");
        panel.blockNumber.SetText("07");
    }

    void PressAndConfirm()
    {
        boxes.ExpectQuestion(kBlockQuestion, true);
        PressTotalReset(*this);
    }

    void ExpectEnd(double currentBlock, const std::string& text2, int shownRecord,
                   const std::string& calibrated)
    {
        EXPECT_EQ(state.currentBlock, currentBlock);
        EXPECT_EQ(panel.blockNumber.Text(), text2);
        EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(DefaultRecord(shownRecord)));
        EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(calibrated));
        EXPECT_EQ(StoredTable(*this), DefaultTable());
    }
};

TEST_F(TotalResetTest, SendsAllThirtyDefaultsAndOneClosingFrameAndShowsBlock1)
{
    PressAndConfirm();

    EXPECT_EQ(port.sent, AllOut());
    EXPECT_EQ(port.sent[1], "C00000CLIENT 1SITE0000T   000002+00000DDMMYYhhmmss\r");
    EXPECT_EQ(port.sent[59], "C1D000CLIENT30SITE0000T   000002+00000DDMMYYhhmmss\r");
    ExpectEnd(1, "01", 1, DefaultRecord(1));
    EXPECT_EQ(state.blockHeader, DefaultHeader(0));
    EXPECT_LINK_AT_REST();
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(TotalResetTest, RunsItsStepsInTheirOrder)
{
    LogIndicator();
    LogTexts(*this, "Text2", panel.blockNumber);
    LogTexts(*this, "Text3", panel.header[Client]);
    LogTexts(*this, "Text20", panel.calibration[Zero1]);

    PressAndConfirm();

    std::vector<std::string> expected = {"Label34 on", "Shape1 on", "port 1", "open"};
    for (int number = 1; number <= 30; ++number) {
        const std::string record = DefaultRecord(number);
        expected.insert(expected.end(),
                        {"Text2=" + OwnRecord(number).substr(30, 2), "Text3=" + record.substr(0, 8),
                         "> }", "< !", "> " + HeaderFrame(number - 1, record)});
    }
    expected.insert(expected.end(),
                    {"Label34 on", "Shape1 on", "> }", "< !", "> b000F500\r", "Text2=01",
                     "Text3=CLIENT 1", "Text20=+0.0000", "close", "Label34 off", "Shape1 off"});
    EXPECT_EQ(port.history, expected);
}

TEST_F(TotalResetTest, ResetsAllRecordsAfterTheIndicatorAndBeforeTheFirstWake)
{
    boxes.ExpectQuestion(kBlockQuestion, true, [&] { EXPECT_EQ(StoredTable(*this), OwnTable()); });
    world.At(0, [&] {
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
        EXPECT_FALSE(port.IsOpen());
        EXPECT_EQ(StoredTable(*this), OwnTable());
    });
    unit.onWake = [&](int wake) {
        if (wake > 1) return;
        EXPECT_EQ(StoredTable(*this), DefaultTable());
    };
    PressTotalReset(*this);
}

TEST_F(TotalResetTest, ChangesNothingWhenTheOperatorCancels)
{
    const std::vector<std::string> typed = HeaderBoxTexts();
    const BlockHeader before = state.blockHeader;
    boxes.ExpectQuestion(kBlockQuestion, false);
    PressTotalReset(*this);

    EXPECT_EQ(StoredTable(*this), OwnTable());
    EXPECT_EQ(state.blockHeader, before);
    EXPECT_EQ(HeaderBoxTexts(), typed);
    EXPECT_EQ(panel.blockNumber.Text(), "07");
    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_THAT(port.history, IsEmpty());
    EXPECT_EQ(world.passes, 0);
}

TEST_F(TotalResetTest, HasResetTheWholeFileWhenNoUnitIsThere)
{
    unit.answerWake = [](int) { return ""; };
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected, [&] { EXPECT_EQ(state.currentBlock, 0); });
    PressTotalReset(*this);

    EXPECT_THAT(port.history, ::testing::ElementsAre("port 1", "open", "> }", "close"));
    EXPECT_EQ(world.Now(), 600);
    ExpectEnd(1, "01", 1, OwnRecord(3));
    EXPECT_LINK_AT_REST();
}

TEST_F(TotalResetTest, KeepsTheFieldsOfTheBlockThatWasNotAnswered)
{
    unit.answerWake = [](int wake) { return wake < 20 ? "!" : ""; };
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected, [&] { EXPECT_EQ(panel.blockNumber.Text(), "20"); });
    PressTotalReset(*this);

    std::vector<std::string> sent = HeadersOut(19);
    sent.emplace_back("}");
    EXPECT_EQ(port.sent, sent);
    ExpectEnd(1, "01", 20, OwnRecord(3));
    EXPECT_LINK_AT_REST();
}

TEST_F(TotalResetTest, LeavesTheIndicatorAndBlock30WhenTheLastWakeIsNotAnswered)
{
    unit.answerWake = [](int wake) { return wake < 31 ? "!" : ""; };
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected, [&] { EXPECT_TRUE(port.IsOpen()); });
    PressTotalReset(*this);

    std::vector<std::string> sent = HeadersOut(30);
    sent.emplace_back("}");
    EXPECT_EQ(port.sent, sent);
    ExpectEnd(30, "30", 30, OwnRecord(3));
    EXPECT_FALSE(port.IsOpen());
    EXPECT_TRUE(panel.waitIndicator.label.Visible());
    EXPECT_TRUE(panel.waitIndicator.ground.Visible());
}

TEST_F(TotalResetTest, LosesOneBlocksHeaderToAWrongAnswerWithoutItsSettleWait)
{
    unit.answerWake = [](int wake) { return wake == 30 ? "!!" : "!"; };

    PressAndConfirm();

    std::vector<std::string> sent = AllOut();
    sent.erase(sent.begin() + 59);
    EXPECT_EQ(port.sent, sent);
    EXPECT_EQ(world.Now(), 30 * 400);
    ExpectEnd(1, "01", 1, DefaultRecord(1));
    EXPECT_LINK_AT_REST();
}

TEST_F(TotalResetTest, SettlesFourTicksAfterEachFrame)
{
    PressAndConfirm();

    EXPECT_EQ(world.Now(), 31 * 400);
}

TEST_F(TotalResetTest, ResetsTheFileWithoutAWordWhenThePortCannotBeOpened)
{
    port.refused = {1};

    PressAndConfirm();

    EXPECT_THAT(port.history, ::testing::ElementsAre("port 1"));
    EXPECT_EQ(world.Now(), 0);
    ExpectEnd(1, "01", 1, DefaultRecord(1));
    EXPECT_LINK_AT_REST();
}

TEST_F(TotalResetTest, KeepsWhatFollowsRecord30)
{
    std::vector<std::string> longer = OwnTable();
    longer.push_back(OwnRecord(4));
    WriteTable(*this, longer);

    PressAndConfirm();

    std::vector<std::string> expected = DefaultTable();
    expected.push_back(OwnRecord(4));
    EXPECT_EQ(StoredTable(*this), expected);
}

TEST_F(TotalResetTest, SendsTheLastDefaultsThirtyTimesWhenTheFileCannotBeOpened)
{
    state.headerFilePath = folder.Path();

    PressAndConfirm();

    EXPECT_EQ(port.sent[1], HeaderFrame(0, DefaultRecord(30))) << "what the filling left";
    EXPECT_EQ(port.sent[59], HeaderFrame(29, DefaultRecord(30)));
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_LINK_AT_REST();
}

TEST_F(TotalResetTest, StopsWithoutAnotherStepWhenTheProgramEndsInASettleWait)
{
    world.EndProgramAt(2 * 400 + 50);

    PressAndConfirm();

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(port.sent, HeadersOut(3));
    EXPECT_EQ(state.currentBlock, 2);
    EXPECT_TRUE(port.IsOpen());
    EXPECT_TRUE(panel.waitIndicator.label.Visible());
}

} // namespace
} // namespace tarvex::tests
