#include "core/header_steps.h"

#include "support/header_table.h"
#include "support/logic_test.h"
#include "support/system_limits.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The panel shows record 3 of the own table, and the operator has changed the client.
class StepRecordTest : public LogicTest
{
protected:
    StepRecordTest()
    {
        OpenOwnTableAt(*this, 3);
        panel.header[Client].SetText("VERDI");
        stored_[2] = WithClient("VERDI", OwnRecord(3));
    }

    ~StepRecordTest() override
    {
        EXPECT_THAT(port.sent, IsEmpty());
        EXPECT_EQ(world.passes, 0) << "nothing else can run inside these commands";
    }

    void Up()
    {
        Click([&] { StepRecordUp(panel, state); });
    }
    void Down()
    {
        Click([&] { StepRecordDown(panel, state); });
    }
    void Copy()
    {
        Click([&] { CopyHeaderForward(panel, state); });
    }

    void ExpectShown(double currentBlock, const std::string& text2, const std::string& header)
    {
        EXPECT_EQ(state.currentBlock, currentBlock);
        EXPECT_EQ(panel.blockNumber.Text(), text2);
        EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(header));
        EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(OwnRecord(3)));
    }

    std::vector<std::string> stored_ = OwnTable(); // the file once the panel has been stored
};

TEST_F(StepRecordTest, UpStoresThePanelAndShowsTheNextRecordWithoutItsCalibration)
{
    Up();

    EXPECT_EQ(StoredTable(*this), stored_);
    ExpectShown(4, "04", OwnRecord(4));
    EXPECT_EQ(state.blockHeader, StoredHeader(4)) << "the working header has all fifteen fields";
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(StepRecordTest, DownStoresThePanelAndShowsTheRecordBefore)
{
    Down();

    EXPECT_EQ(StoredTable(*this), stored_);
    ExpectShown(2, "02", OwnRecord(2));
}

TEST_F(StepRecordTest, SpreadsTheHiddenBoxesOverEveryRecordThatIsLeft)
{
    Up();
    Up();
    Up();
    Down();

    for (const int left : {4, 5, 6})
        stored_[static_cast<std::size_t>(left) - 1] =
            WithCalibrationOf(OwnRecord(3), OwnRecord(left));
    EXPECT_EQ(StoredTable(*this), stored_);
    ExpectShown(5, "05", OwnRecord(5));
}

TEST_F(StepRecordTest, ShowsTheNumberBeforeTheRecord)
{
    LogTexts(*this, "Text2", panel.blockNumber);
    LogTexts(*this, "Text3", panel.header[Client]);
    LogTexts(*this, "Text12", panel.header[Time]);
    LogTexts(*this, "Text18", panel.calibration[Gain1]);
    Up();

    EXPECT_THAT(port.history, ElementsAre("Text2=04", "Text3=ROSSI_04", "Text12=100430"));
}

TEST_F(StepRecordTest, UpAtTheLastRecordStoresItAndReadsItBack)
{
    OpenOwnTableAt(*this, 30);
    panel.header[Client].SetText("NERI");
    panel.header[DepthMetres].SetText("12");
    panel.header[DepthTenths].SetText("5");
    Up();

    std::vector<std::string> expected = OwnTable();
    expected[29] = WithClient("NERI", OwnRecord(30)).replace(20, 4, "125 ");
    EXPECT_EQ(StoredTable(*this), expected);
    EXPECT_EQ(state.currentBlock, 30);
    EXPECT_EQ(panel.blockNumber.Text(), "30");
    EXPECT_EQ(panel.header[Client].Text(), "NERI    ") << "read back, with its blanks";
    EXPECT_EQ(panel.header[DepthMetres].Text(), "125");
    EXPECT_EQ(panel.header[DepthTenths].Text(), " ");
}

TEST_F(StepRecordTest, DownAtTheFirstRecordStoresItAndReadsItBack)
{
    OpenOwnTableAt(*this, 1);
    panel.header[Client].SetText("NERI");
    Down();

    std::vector<std::string> expected = OwnTable();
    expected[0] = WithClient("NERI", OwnRecord(1));
    EXPECT_EQ(StoredTable(*this), expected);
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(panel.blockNumber.Text(), "01");
    EXPECT_EQ(panel.header[Client].Text(), "NERI    ");
}

TEST_F(StepRecordTest, WithoutAHeaderFileNothingHappens)
{
    const std::vector<std::string> typed = HeaderBoxTexts();
    const BlockHeader before = state.blockHeader;
    state.headerFilePath.clear();
    Up();
    Down();
    Copy();

    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_EQ(panel.blockNumber.Text(), "03");
    EXPECT_EQ(HeaderBoxTexts(), typed);
    EXPECT_EQ(state.blockHeader, before);
    EXPECT_EQ(finishedHandlers, 3);
}

TEST_F(StepRecordTest, AFileThatCannotBeOpenedEndsTheProgramBeforeAnythingChanges)
{
    const std::vector<std::string> typed = HeaderBoxTexts();
    const BlockHeader before = state.blockHeader;
    state.headerFilePath = folder / "missing" / "intestazione";
    Up();

    EXPECT_TRUE(unhandledFailure.has_value());
    EXPECT_EQ(world.end.Status(), 1);
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_EQ(panel.blockNumber.Text(), "03");
    EXPECT_EQ(HeaderBoxTexts(), typed);
    EXPECT_EQ(state.blockHeader, before);
}

TEST_F(StepRecordTest, ARecordThatCannotBeWrittenEndsTheProgramOnTheSameBlock)
{
    SKIP_WHERE_NO_DISK_FILLS();
    {
        const FullDisk full(10);
        Down();
    }

    EXPECT_TRUE(unhandledFailure.has_value());
    EXPECT_TRUE(world.Ended());
    EXPECT_EQ(StoredTable(*this), OwnTable());
    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_EQ(panel.blockNumber.Text(), "03");
}

TEST_F(StepRecordTest, ANumberBelowTheTableOnEntryEndsTheProgram)
{
    for (const double number : {0.0, 0.5, -1.0}) {
        TestProgram other;
        OpenOwnTableAt(other, 3);
        other.state.currentBlock = number;
        other.Click([&] { StepRecordUp(other.panel, other.state); });

        EXPECT_TRUE(other.unhandledFailure.has_value()) << number;
        EXPECT_EQ(other.state.currentBlock, number);
        EXPECT_EQ(StoredTable(other), OwnTable());
    }
}

TEST_F(StepRecordTest, ANumberAboveTheTableOnEntryIsStoredThereAndComesBackToTheLast)
{
    state.currentBlock = 32;
    Up();

    std::vector<std::string> expected = OwnTable();
    expected.emplace_back(77, '\0');
    expected.push_back(stored_[2]);
    EXPECT_EQ(StoredTable(*this), expected);
    ExpectShown(30, "30", OwnRecord(30));
}

class CopyHeaderForwardTest : public StepRecordTest
{
};

TEST_F(CopyHeaderForwardTest, StoresThePanelAndMovesOnWithoutReading)
{
    Copy();

    EXPECT_EQ(StoredTable(*this), stored_);
    EXPECT_EQ(state.blockHeader, StoredHeader(3));
    EXPECT_EQ(state.currentBlock, 4);
    EXPECT_EQ(panel.blockNumber.Text(), "04");
    EXPECT_EQ(panel.header[Client].Text(), "VERDI") << "as typed";
    EXPECT_EQ(panel.header[Site].Text(), "DIGA  03");
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(CopyHeaderForwardTest, FillsTheTableInThirtyPresses)
{
    OpenOwnTableAt(*this, 1);
    for (int press = 1; press <= 29; ++press)
        Copy();

    std::vector<std::string> expected(29, OwnRecord(1));
    expected.push_back(OwnRecord(30));
    EXPECT_EQ(StoredTable(*this), expected);
    EXPECT_EQ(panel.blockNumber.Text(), "30");
    EXPECT_EQ(state.currentBlock, 30);

    Copy();
    EXPECT_EQ(StoredTable(*this), std::vector<std::string>(30, OwnRecord(1)));
    EXPECT_EQ(panel.blockNumber.Text(), "30");
    EXPECT_EQ(state.currentBlock, 30);
}

TEST_F(CopyHeaderForwardTest, GoesOnFromWhatWasTypedBetweenTwoPresses)
{
    Copy();
    panel.header[Tube].SetText("T99");
    Copy();

    stored_[3] = std::string(stored_[2]).replace(16, 4, "T99 ");
    EXPECT_EQ(StoredTable(*this), stored_);
    EXPECT_EQ(panel.blockNumber.Text(), "05");
}

TEST_F(CopyHeaderForwardTest, MovesOnAlthoughTheFileCannotBeOpened)
{
    state.headerFilePath = folder.Path();
    Copy();

    EXPECT_FALSE(unhandledFailure.has_value());
    EXPECT_EQ(state.currentBlock, 4);
    EXPECT_EQ(panel.blockNumber.Text(), "04");
    EXPECT_EQ(state.blockHeader.cliente.Text(), "VERDI   ") << "only the put failed";
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(CopyHeaderForwardTest, MovesOnAlthoughTheRecordCannotBeWritten)
{
    SKIP_WHERE_NO_DISK_FILLS();
    {
        const FullDisk full(10);
        Copy();
    }

    EXPECT_EQ(StoredTable(*this), OwnTable());
    EXPECT_EQ(state.currentBlock, 4);
}

TEST_F(CopyHeaderForwardTest, FromBelowTheTableStoresNothingAndMovesOn)
{
    state.currentBlock = 0;
    Copy();

    EXPECT_EQ(StoredTable(*this), OwnTable());
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(panel.blockNumber.Text(), "01");
}

} // namespace
} // namespace tarvex::tests
