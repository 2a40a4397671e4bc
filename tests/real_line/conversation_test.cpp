#include "real_line/real_line_test.h"
#include "support/report_bytes.h"

namespace tarvex::tests
{
namespace
{

class RealConversationTest : public BothDrivers
{
protected:
    void SetUp() override { StartOn(line->Device()); }
};

TEST_P(RealConversationTest, ABlockIsReadByTenWakesAndTenFrames)
{
    ExpectBlockRead();

    std::string frames;
    for (char page = '0'; page <= '9'; ++page)
        frames += std::string("}a000") + page + "0\r";
    EXPECT_EQ(line->farEnd.Heard(), frames);
    EXPECT_TRUE(boxes.texts.isEmpty());
}

TEST_P(RealConversationTest, ABlockIsWrittenByItsFrameAndTheClosingFrame)
{
    AtPanel().Type("Text3", "rossi");
    AtPanel().Type("Text4", "diga a");
    AtPanel().Type("Text6", "12");

    AtPanel().Click("Command6");

    const std::string fields = "ROSSI   DIGA A  T   01200"
                               "2+00000DDMMYYhhmmss";
    EXPECT_EQ(line->farEnd.Heard(), "}C00000" + fields + "\r}b000F500\r");
    EXPECT_EQ(line->farEnd.Memory().Text(0x00, 8), "ROSSI   ");
    EXPECT_EQ(line->farEnd.Memory().Text(0x10, 8), "DIGA A  ");
    EXPECT_EQ(boxes.texts.size(), 1);
}

/// "+00500": the upper bit of a word of the unit's memory is set where it is positive.
std::string Reading(const unit::Memory& memory, std::uint32_t address)
{
    const unsigned word = memory.At(address) * 256U + memory.At(address + 1);
    std::string digits = std::to_string(word & 0x7FFFU);
    digits.insert(0, 5 - digits.size(), '0');
    return ((word & 0x8000U) != 0 ? "+" : "-") + digits;
}

/// The rows of block 1: 30.0 m in steps of half a metre, two guides.
std::vector<std::string> RowsOf(const unit::Memory& memory)
{
    std::vector<std::string> rows;
    std::uint32_t page = 0x100;
    for (int tenths = 300; tenths >= 5; tenths -= 5, page += 16) {
        std::string depth = std::to_string(tenths + 10'000).substr(1);
        depth.insert(3, ".");
        std::vector<std::string> readings;
        for (std::uint32_t word = 0; word < 4; ++word)
            readings.push_back(Reading(memory, page + 2 * word));
        rows.push_back(RowRecord(depth, readings));
    }
    return rows;
}

TEST_P(RealConversationTest, ADownloadIsTheUnitsMemoryByteForByte)
{
    AtPanel().ShowTab(2);
    AtPanel().Type("numblocco", "01");
    ChooseFolder(folder.Path());

    AtPanel().Click("command3d1");

    const auto rows = RowsOf(line->farEnd.Memory());
    ASSERT_EQ(rows.size(), 60U);
    EXPECT_EQ(FileBytes(folder / "datiram.dat"), WorkFileOf(rows));
    EXPECT_EQ(FileBytes(folder / "DELVALLE-FRANA 02-T01 -03-num.dat"), DataReportOf(rows));
    EXPECT_EQ(FileBytes(folder / "DELVALLE-FRANA 02-T01 -03-dat.dat"),
              HeadReportOf({"Client: ;DELVALLE", "Site:;FRANA 02", "Tube no: ;T01 ", "Depth:;030.0",
                            "Step:;0", "Guides no: ;2", "North:;+045", "Readout no:;03",
                            "Date: ;12/04/26", "Time:;09:30:15"}));
    EXPECT_TRUE(boxes.texts.isEmpty());
}

TEST_P(RealConversationTest, AWaitForAUnitThatFellSilentUsesNoProcessor)
{
    std::atomic<bool> silent = false;
    line->farEnd.At(unit::Moment::PageRead, 3, [&](std::string& answer) {
        answer.clear();
        silent = true;
    });

    const double load = LoadOfWait(
        "Command3", [&] { return silent.load(); }, [this] { program->MainForm()->close(); });

    EXPECT_LT(load, kIdleLoad);
    EXPECT_TRUE(program->End().Ended());
    EXPECT_TRUE(boxes.texts.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(, RealConversationTest, ::testing::ValuesIn(Drivers()), DriverName);

} // namespace
} // namespace tarvex::tests
