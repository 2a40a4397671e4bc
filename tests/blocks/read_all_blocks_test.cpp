#include "blocks/block_commands.h"

#include "blocks/unit_headers.h"
#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The panel shows record 3 of the own table; all thirty records are to take its calibration.
class ReadAllBlocksTest : public LogicTest
{
protected:
    ReadAllBlocksTest()
    {
        OpenOwnTableAt(*this, 3);
        FillUnit(*this);
        for (int number = 1; number <= 30; ++number)
            fetched_.push_back(RecordOfValues(UnitValues(number), OwnRecord(3)));
    }

    /// The file when the first `count` blocks have been stored.
    std::vector<std::string> FetchedUpTo(int count) const
    {
        std::vector<std::string> records = OwnTable();
        std::copy_n(fetched_.begin(), count, records.begin());
        return records;
    }

    std::vector<std::string> fetched_;
};

TEST_F(ReadAllBlocksTest, StoresAllThirtyHeadersWithTheCalibrationOfTheHiddenBoxes)
{
    PressReadAllBlocks(*this);

    EXPECT_EQ(StoredTable(*this), fetched_);
    EXPECT_EQ(fetched_[16], "UNIT  17SITO_17/#17#117704-01717171226  221759  "
                            "C+1.0003+2.0003+0.1003+0.2003");
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(panel.blockNumber.Text(), "01");
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(fetched_[0]));
    EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(OwnRecord(3)));
    EXPECT_EQ(panel.readAddress.Text(), "1D090");
    EXPECT_EQ(state.readAddrBlock, "1D");
    EXPECT_EQ(state.readAddrBank, "0");
    EXPECT_EQ(state.readAddrPage, "90");
    EXPECT_LINK_AT_REST();
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(ReadAllBlocksTest, OpensThePortAgainForEachBlockAndWakesBeforeEachPage)
{
    PressReadAllBlocks(*this);

    std::vector<std::string> expected;
    for (int index = 0; index < 30; ++index) {
        const std::string block = BlockAddress(index).substr(0, 2);
        expected.insert(expected.end(), {"port 1", "open"});
        for (int page = 0; page < 10; ++page) {
            const std::string value = UnitValues(index + 1)[static_cast<std::size_t>(page)];
            expected.insert(expected.end(),
                            {"> }", "< !", "> a" + block + "0" + std::to_string(page) + "0\r",
                             "< " + ScriptedUnit::PageReply(value)});
        }
        expected.emplace_back("close");
    }
    EXPECT_EQ(port.history, expected);
}

TEST_F(ReadAllBlocksTest, ShowsEachBlockOnceItIsReadAndStoresItWithThePortClosed)
{
    LogIndicator();
    LogTexts(*this, "Text2", panel.blockNumber);
    LogTexts(*this, "Text3", panel.header[Client]);
    LogTexts(*this, "Text18", panel.calibration[Gain1]);
    PressReadAllBlocks(*this);

    std::vector<std::string> steps;
    for (const std::string& step : port.history) {
        if (step[0] != '>' && step[0] != '<') steps.push_back(step);
    }
    std::vector<std::string> expected = {"Label34 on", "Shape1 on"};
    for (int number = 1; number <= 30; ++number) {
        expected.insert(expected.end(), {"Text2=" + UnitValues(number)[7], "port 1", "open",
                                         "Text3=" + UnitValues(number)[0], "close"});
    }
    expected.insert(expected.end(),
                    {"Label34 off", "Shape1 off", "Text2=01", "Text3=UNIT  01", "Text18=+1.0003"});
    EXPECT_EQ(steps, expected);
}

TEST_F(ReadAllBlocksTest, HasStoredEachBlockBeforeTheNextIsWoken)
{
    unit.onWake = [&](int wake) {
        if (wake % 100 != 1) return;
        EXPECT_EQ(StoredTable(*this), FetchedUpTo(wake / 10));
    };
    PressReadAllBlocks(*this);
}

TEST_F(ReadAllBlocksTest, LeavesTheFileWhenTheFirstWakeIsNotAnswered)
{
    unit.answerWake = [](int) { return ""; };
    boxes.Expect(kNotConnected, [&] {
        EXPECT_TRUE(port.IsOpen());
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
    });
    PressReadAllBlocks(*this);

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "close"));
    EXPECT_EQ(world.Now(), 600);
    EXPECT_EQ(StoredTable(*this), OwnTable());
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(OwnRecord(3)));
    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_EQ(panel.blockNumber.Text(), "01");
    EXPECT_LINK_AT_REST();
}

TEST_F(ReadAllBlocksTest, KeepsTheRecordsBeforeTheBlockWhereTheUnitFellSilent)
{
    unit.answerWake = [](int wake) { return wake <= 50 ? "!" : ""; };
    boxes.Expect(kNotConnected);
    PressReadAllBlocks(*this);

    EXPECT_EQ(StoredTable(*this), FetchedUpTo(5));
    EXPECT_EQ(panel.blockNumber.Text(), "06");
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(fetched_[4]));
    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_EQ(panel.readAddress.Text(), "04090");
    EXPECT_EQ(state.readAddrBlock, "05");
    EXPECT_EQ(state.readAddrPage, "00");
    EXPECT_LINK_AT_REST();
}

TEST_F(ReadAllBlocksTest, WaitsForEverWithinABlockAndLeavesItsRecord)
{
    unit.answerWake = [](int wake) { return wake <= 57 ? "!" : ""; };
    world.EndProgramAt(600'000);
    PressReadAllBlocks(*this);

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(world.Now(), 600'000);
    EXPECT_EQ(StoredTable(*this), FetchedUpTo(5));
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(fetched_[4]));
    EXPECT_LINK_WAITING();
}

TEST_F(ReadAllBlocksTest, StoresThirtyBlankHeadersWithoutAWordWhenThePortCannotBeOpened)
{
    port.refused = {1};
    PressReadAllBlocks(*this);

    const std::string blank = WithCalibrationOf(OwnRecord(3), std::string(77, ' '));
    EXPECT_EQ(StoredTable(*this), std::vector<std::string>(30, blank));
    EXPECT_THAT(port.sent, IsEmpty());
    EXPECT_EQ(world.Now(), 0);
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(blank));
    EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(OwnRecord(3)));
    EXPECT_LINK_AT_REST();
}

/// Each of the rest is passed over page by page, and a page passed over keeps its text.
TEST_F(ReadAllBlocksTest, StoresTheLastHeaderReadForTheRestWhenThePortGoesBetweenTwoBlocks)
{
    panel.blockNumber.Watch([&] {
        if (panel.blockNumber.Text() == "06") port.vanished = true;
    });
    PressReadAllBlocks(*this);

    auto records = FetchedUpTo(5);
    std::fill(records.begin() + 5, records.end(), fetched_[4]);
    EXPECT_EQ(StoredTable(*this), records);
    EXPECT_EQ(unit.wakes, 50);
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_LINK_AT_REST();
}

class LostPageTest : public ReadAllBlocksTest, public ::testing::WithParamInterface<int>
{
};

TEST_P(LostPageTest, KeepsTheValueOfTheBlockBeforeAndBlanksItInTheFirst)
{
    const int page = GetParam();
    unit.answerWake = [&](int wake) {
        return wake == page + 1 || wake == 70 + page + 1 ? "?" : "!";
    };
    PressReadAllBlocks(*this);

    const auto field = static_cast<std::size_t>(page);
    std::vector<std::string> first = UnitValues(1);
    first[field] = "";
    std::vector<std::string> eighth = UnitValues(8);
    eighth[field] = UnitValues(7)[field];
    fetched_[0] = RecordOfValues(first, OwnRecord(3));
    fetched_[7] = RecordOfValues(eighth, OwnRecord(3));
    EXPECT_EQ(StoredTable(*this), fetched_);
    EXPECT_EQ(port.sent.size(), 598U);
    EXPECT_LINK_AT_REST();
}

INSTANTIATE_TEST_SUITE_P(Pages, LostPageTest, ::testing::Range(0, 10));

TEST_F(ReadAllBlocksTest, KeepsStepAndGuidesOfTheBlockBeforeWhenTheirDigitsAreGarbled)
{
    unit.answerRead = [](int read, const std::string& reply) {
        const bool garbled = read > 70 && read <= 80;
        return garbled ? "G" + reply.substr(1) : reply; // the first byte of each page
    };
    PressReadAllBlocks(*this);

    std::vector<std::string> eighth = UnitValues(8);
    for (std::string& value : eighth)
        value.erase(0, 1);
    eighth[4] = UnitValues(7)[4];
    eighth[5] = UnitValues(7)[5];
    fetched_[7] = RecordOfValues(eighth, OwnRecord(3));
    // One character short, the date shows the first of the two bytes after its digits.
    EXPECT_EQ(fetched_[7].substr(32, 8), "81226X  ");
    // The depth's pieces are joined as the boxes hold them: "087" and nothing.
    EXPECT_EQ(fetched_[7].substr(20, 4), "087 ");
    EXPECT_EQ(StoredTable(*this), fetched_);
}

TEST_F(ReadAllBlocksTest, LosesWhatTheOperatorTypesDuringTheRunToTheBlocksOwnHeader)
{
    world.At(30, [&] { panel.header[Client].SetText("VERDI"); });
    PressReadAllBlocks(*this);

    EXPECT_EQ(StoredTable(*this), fetched_);
}

TEST_F(ReadAllBlocksTest, StoresAHiddenBoxThatChangesDuringTheRunFromTheNextStoreOn)
{
    unit.onWake = [&](int wake) {
        if (wake == 45) panel.calibration[Zero2].SetText("-0.5000");
    };
    PressReadAllBlocks(*this);

    for (std::size_t index = 4; index < 30; ++index)
        fetched_[index].replace(70, 7, "-0.5000");
    EXPECT_EQ(StoredTable(*this), fetched_);
}

TEST_F(ReadAllBlocksTest, GoesOnWithTheBlockItselfWhenItsNumberIsTypedOver)
{
    world.At(30, [&] { panel.blockNumber.SetText("29"); });
    PressReadAllBlocks(*this);

    EXPECT_EQ(StoredTable(*this), fetched_);
    EXPECT_EQ(panel.blockNumber.Text(), "01");
}

TEST_F(ReadAllBlocksTest, ReadsToTheEndWhenTheFileCannotBeWritten)
{
    state.headerFilePath = folder.Path();
    PressReadAllBlocks(*this);

    EXPECT_EQ(port.sent.size(), 600U);
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(panel.blockNumber.Text(), "01");
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(fetched_[29]));
    EXPECT_LINK_AT_REST();
}

TEST_F(ReadAllBlocksTest, TakesAPortChosenDuringABlockFromTheNextBlockOn)
{
    unit.onWake = [&](int wake) {
        if (wake == 285) state.comPortNumber = 4; // within block 29
        EXPECT_EQ(port.OpenedPort(), wake <= 290 ? 1 : 4);
    };
    PressReadAllBlocks(*this);

    EXPECT_EQ(StoredTable(*this), fetched_);
}

} // namespace
} // namespace tarvex::tests
