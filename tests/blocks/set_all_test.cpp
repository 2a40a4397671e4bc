#include "blocks/block_commands.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::IsEmpty;

/// The panel shows record 3 of the own table with another client and another gain; `BlockHeader`
/// still holds the record as it was loaded. The operator has then typed block 7.
class SetAllTest : public LogicTest
{
protected:
    SetAllTest()
    {
        OpenOwnTableAt(*this, 3);
        panel.header[Client].SetText("VERDI");
        panel.calibration[Gain1].SetText("+9.9999");
        panel.blockNumber.SetText("07");
        edited_[2] = WithClient("VERDI", OwnRecord(3));
    }

    void PressAndConfirm()
    {
        boxes.ExpectQuestion(kBlockQuestion, true);
        PressSetAll(*this);
    }

    /// What goes out when the first `count` headers do.
    std::vector<std::string> HeadersOut(int count) const
    {
        std::vector<std::string> sent;
        for (int index = 0; index < count; ++index) {
            sent.emplace_back("}");
            sent.push_back(HeaderFrame(index, edited_[static_cast<std::size_t>(index)]));
        }
        return sent;
    }

    std::vector<std::string> AllOut() const
    {
        std::vector<std::string> sent = HeadersOut(30);
        sent.insert(sent.end(), {"}", "b000F500\r"});
        return sent;
    }

    void ExpectEnd(double currentBlock, const std::string& text2, const std::string& header,
                   const std::string& calibration)
    {
        EXPECT_EQ(state.currentBlock, currentBlock);
        EXPECT_EQ(panel.blockNumber.Text(), text2);
        EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(header));
        EXPECT_EQ(CalibrationOnPanel(*this), calibration);
        EXPECT_EQ(StoredTable(*this), edited_);
    }

    /// The hidden boxes as the fixture leaves them.
    const std::string kOwnCalibration = "+9.9999+0.1003+2.0003+0.2003C";

    std::vector<std::string> edited_ = OwnTable(); // the file once the panel has been stored
};

TEST_F(SetAllTest, SendsAllThirtyRecordsAndOneClosingFrameAndShowsBlock1)
{
    PressAndConfirm();

    EXPECT_EQ(port.sent, AllOut());
    EXPECT_EQ(port.sent[5], "C02000VERDI   DIGA  03T03 003514+00303030126100330\r");
    EXPECT_EQ(port.sent[59], "C1D000ROSSI_30DIGA  30T30 030504+03030300126103030\r");
    ExpectEnd(1, "01", OwnRecord(1), CalibrationPayload(OwnRecord(1)));
    EXPECT_EQ(state.blockHeader, StoredHeader(1));
    EXPECT_LINK_AT_REST();
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(SetAllTest, RunsItsStepsInTheirOrder)
{
    LogIndicator();
    LogTexts(*this, "Text2", panel.blockNumber);
    LogTexts(*this, "Text12", panel.header[Time]);
    LogTexts(*this, "Text22", panel.calibration[Point]);

    PressAndConfirm();

    std::vector<std::string> expected = {"Label34 on", "Shape1 on", "port 1", "open"};
    for (int number = 1; number <= 30; ++number) {
        const std::string nn = OwnRecord(number).substr(30, 2);
        const std::string frame =
            "> " + HeaderFrame(number - 1, edited_[static_cast<std::size_t>(number) - 1]);
        expected.insert(expected.end(),
                        {"Text2=" + nn, "Text12=10" + nn + "30", "> }", "< !", frame});
    }
    expected.insert(expected.end(), {"> }", "< !", "> b000F500\r", "close", "Label34 off",
                                     "Shape1 off", "Text2=01", "Text12=100130", "Text22=A"});
    EXPECT_EQ(port.history, expected);
}

TEST_F(SetAllTest, StoresThePanelOnlyAfterTheAnswerAndTheIndicator)
{
    boxes.ExpectQuestion(kBlockQuestion, true, [&] {
        EXPECT_EQ(StoredTable(*this), OwnTable());
        EXPECT_FALSE(panel.waitIndicator.label.Visible());
    });
    world.At(0, [&] {
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
        EXPECT_TRUE(panel.waitIndicator.ground.Visible());
        EXPECT_EQ(StoredTable(*this), OwnTable());
    });
    unit.onWake = [&](int wake) {
        if (wake > 1) return;
        EXPECT_EQ(StoredTable(*this), edited_);
    };
    PressSetAll(*this);
}

TEST_F(SetAllTest, ChangesNothingWhenTheOperatorCancels)
{
    const std::vector<std::string> typed = HeaderBoxTexts();
    const BlockHeader before = state.blockHeader;
    boxes.ExpectQuestion(kBlockQuestion, false);
    PressSetAll(*this);

    EXPECT_EQ(StoredTable(*this), OwnTable());
    EXPECT_EQ(state.blockHeader, before);
    EXPECT_EQ(HeaderBoxTexts(), typed);
    EXPECT_EQ(panel.blockNumber.Text(), "07");
    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_THAT(port.history, IsEmpty());
    EXPECT_EQ(world.passes, 0);
}

TEST_F(SetAllTest, GoesBackToBlock01AndKeepsTheFieldsOfTheBlockThatWasNotAnswered)
{
    unit.answerWake = [](int wake) { return wake < 5 ? "!" : ""; };
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected, [&] {
        EXPECT_TRUE(port.IsOpen());
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
        EXPECT_EQ(state.currentBlock, 4);
        EXPECT_EQ(panel.blockNumber.Text(), "05");
    });
    PressSetAll(*this);

    std::vector<std::string> sent = HeadersOut(4);
    sent.emplace_back("}");
    EXPECT_EQ(port.sent, sent);
    EXPECT_EQ(world.Now(), 4 * 200 + 600);
    ExpectEnd(1, "01", OwnRecord(5), kOwnCalibration);
    EXPECT_EQ(state.blockHeader, StoredHeader(5));
    EXPECT_LINK_AT_REST();
}

TEST_F(SetAllTest, LeavesTheIndicatorAndBlock30WhenTheLastWakeIsNotAnswered)
{
    unit.answerWake = [](int wake) { return wake < 31 ? "!" : ""; };
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected, [&] { EXPECT_TRUE(port.IsOpen()); });
    PressSetAll(*this);

    std::vector<std::string> sent = HeadersOut(30);
    sent.emplace_back("}");
    EXPECT_EQ(port.sent, sent);
    ExpectEnd(30, "30", OwnRecord(30), kOwnCalibration);
    EXPECT_FALSE(port.IsOpen());
    EXPECT_TRUE(panel.waitIndicator.label.Visible());
    EXPECT_TRUE(panel.waitIndicator.ground.Visible());
}

TEST_F(SetAllTest, LosesOneBlocksHeaderToAWrongAnswerWithoutItsSettleWait)
{
    unit.answerWake = [](int wake) { return wake == 11 ? " !" : "!"; };

    PressAndConfirm();

    std::vector<std::string> sent = AllOut();
    sent.erase(sent.begin() + 21);
    EXPECT_EQ(port.sent, sent);
    EXPECT_EQ(world.Now(), 30 * 200);
    ExpectEnd(1, "01", OwnRecord(1), CalibrationPayload(OwnRecord(1)));
    EXPECT_LINK_AT_REST();
}

TEST_F(SetAllTest, SettlesTwoTicksAfterEachFrame)
{
    PressAndConfirm();

    EXPECT_EQ(world.Now(), 31 * 200);
}

TEST_F(SetAllTest, WalksThePanelThroughAllRecordsWhenThePortCannotBeOpened)
{
    LogTexts(*this, "Text2", panel.blockNumber);
    port.refused = {1};

    PressAndConfirm();

    EXPECT_EQ(port.history.size(), 1U + 30U + 1U);
    EXPECT_EQ(port.history[30], "Text2=30");
    EXPECT_THAT(port.sent, IsEmpty());
    EXPECT_EQ(world.Now(), 0);
    ExpectEnd(1, "01", OwnRecord(1), CalibrationPayload(OwnRecord(1)));
    EXPECT_LINK_AT_REST();
}

TEST_F(SetAllTest, TakesTheCalibrationOfTheStoredRecordFromWhateverWasLoadedLast)
{
    state.blockHeader = StoredHeader(9);

    PressAndConfirm();

    edited_[2] = WithCalibrationOf(OwnRecord(9), edited_[2]);
    EXPECT_EQ(StoredTable(*this), edited_);
}

TEST_F(SetAllTest, CarriesAnUnansweredBlockIntoRecord1WhenItIsPressedOnceMore)
{
    unit.answerWake = [](int wake) { return wake == 5 ? "" : "!"; };
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected);
    PressSetAll(*this);
    port.sent.clear();

    PressAndConfirm();

    edited_[0] = OwnRecord(5);
    EXPECT_EQ(port.sent, AllOut());
    ExpectEnd(1, "01", OwnRecord(5), CalibrationPayload(OwnRecord(5)));
}

TEST_F(SetAllTest, StoresAtRecord30WhenTheClosingFrameFailedAndItIsPressedOnceMore)
{
    unit.answerWake = [](int wake) { return wake == 31 ? "" : "!"; };
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected);
    PressSetAll(*this);
    panel.header[Client].SetText("NERI");
    port.sent.clear();

    PressAndConfirm();

    edited_[29] = WithClient("NERI", OwnRecord(30)); // CurrentBlock had stayed at 30
    EXPECT_EQ(port.sent, AllOut());
    ExpectEnd(1, "01", OwnRecord(1), CalibrationPayload(OwnRecord(1)));
    EXPECT_LINK_AT_REST();
}

TEST_F(SetAllTest, SendsThePanelThirtyTimesWhenTheFileCannotBeOpened)
{
    state.headerFilePath = folder / "missing" / "intestazione";

    PressAndConfirm();

    EXPECT_EQ(port.sent.size(), 62U);
    EXPECT_EQ(port.sent[1], HeaderFrame(0, WithClient("VERDI", OwnRecord(3))));
    EXPECT_EQ(port.sent[59], HeaderFrame(29, WithClient("VERDI", OwnRecord(3))));
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(panel.blockNumber.Text(), "01");
    EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(OwnRecord(3)))
        << "the working header's, for the boxes are reloaded from it";
    EXPECT_LINK_AT_REST();
}

TEST_F(SetAllTest, StopsWithoutAnotherStepWhenTheProgramEndsInASettleWait)
{
    world.EndProgramAt(2 * 200 + 50);

    PressAndConfirm();

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(port.sent, HeadersOut(3));
    EXPECT_EQ(state.currentBlock, 2);
    EXPECT_TRUE(port.IsOpen());
    EXPECT_EQ(StoredTable(*this), edited_);
}

} // namespace
} // namespace tarvex::tests
