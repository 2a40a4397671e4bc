#include "documents/conversation_test.h"
#include "documents/header_fields.h"

#include "blocks/block_commands.h"
#include "core/failure_rule.h"
#include "download/block_download.h"
#include "download/sample_word.h"
#include "link/operation_end.h"
#include "link/write_frames.h"
#include "unit/block_header.h"
#include "unit/hexadecimal.h"

#include <numeric>

namespace tarvex::tests
{
namespace
{

/// Two numbers of one cell: "4, 5".
std::pair<int, int> Pair(const std::string& cell)
{
    const auto comma = cell.find(", ");
    return {Number(cell.substr(0, comma)), Number(cell.substr(comma + 2))};
}

class MemoryMap : public ConversationTest
{
protected:
    /// The frame that `send` puts on an open line.
    std::string FrameOf(const std::function<void(DeviceLink&)>& send)
    {
        ClickLink([&](DeviceLink& link) {
            link.OpenPort();
            send(link);
            EndOperation(link, view);
        });
        return heard.said.back().bytes;
    }

    /// What the fields of a table hold together, each cut at its width in the frame.
    static std::string Payload(const std::vector<Cells>& rows, const BlockHeader& header)
    {
        return std::accumulate(rows.begin(), rows.end(), std::string(),
                               [&](const std::string& before, const Cells& row) {
                                   const auto width = static_cast<std::size_t>(Number(row.at(1)));
                                   return before +
                                          FieldNamed(row.at(2)).Of(header).substr(0, width);
                               });
    }

    static void ExpectOffsetsAddUp(const std::vector<Cells>& rows)
    {
        int offset = 6; // after the letter and the address
        for (const Cells& row : rows) {
            EXPECT_EQ(Number(row.at(0)), offset) << row.at(2);
            offset += Number(row.at(1));
        }
    }
};

TEST_F(MemoryMap, HeaderFieldsAreInTheFrameWhereThePageSays)
{
    const auto rows = page.Table("The header");
    OpenOwnTableAt(*this, 7);

    const std::string frame =
        FrameOf([&](DeviceLink& link) { SendHeaderFrame(link, panel.header, 6); });

    EXPECT_EQ(frame, "C06000" + Payload(rows, StoredHeader(7)) + "\r");
    ExpectOffsetsAddUp(rows);
}

TEST_F(MemoryMap, CalibrationFieldsAreInTheFrameWhereThePageSays)
{
    const auto rows = page.Table("The calibration");
    OpenOwnTableAt(*this, 7);

    const std::string frame =
        FrameOf([&](DeviceLink& link) { SendCalibrationFrame(link, panel.calibration, 6); });

    EXPECT_EQ(frame, "D06000" + Payload(rows, StoredHeader(7)) + "\r");
    ExpectOffsetsAddUp(rows);
}

TEST_F(MemoryMap, UnitKeepsTheHeaderInThePagesThatThePageSays)
{
    const auto rows = page.Table("The header");
    ASSERT_EQ(rows.size(), unit::kHeaderPlaces.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(Number(rows[i].at(1))), unit::kHeaderPlaces.at(i).width);
        EXPECT_EQ(static_cast<std::uint32_t>(Number(rows[i].at(3), 16)),
                  unit::kHeaderPlaces.at(i).page);
    }
}

TEST_F(MemoryMap, ManagerFindsTheHeaderInThePagesThatThePageSays)
{
    unit::Memory memory;
    std::string expected;
    for (const Cells& row : page.Table("The header")) {
        const auto width = static_cast<std::size_t>(Number(row.at(1)));
        const auto address = static_cast<std::uint32_t>(Number(row.at(3), 16));
        const std::string text = (row.at(3) + "abcdefgh").substr(0, width);
        memory.Put(address, text);
        expected += text;
    }
    HeardLine other(*this, memory);

    PressReadBlock(*this);

    EXPECT_EQ(HeaderOnPanel(*this), expected);
}

TEST_F(MemoryMap, ReadsGoWhereThePageSays)
{
    const auto rows = page.Table("A block");
    Run("download");

    std::vector<std::string> addresses;
    for (const auto& words : heard.said)
        if (words.bytes.starts_with('a')) addresses.push_back(words.bytes.substr(1, 5));
    ASSERT_EQ(addresses.size(), 13U);
    EXPECT_EQ(addresses.front(), "00" + rows.at(0).at(0));
    EXPECT_EQ(addresses.at(9), "00" + rows.at(0).at(1).substr(0, 2) + "0"); // its last page
    EXPECT_EQ(addresses.at(10), "00" + rows.at(1).at(0));
    EXPECT_EQ(Number(rows.at(1).at(1), 16) + 1, static_cast<int>(unit::kBlockBytes));
}

TEST(ProtocolPage, BlocksBeginWhereItSays)
{
    for (const Cells& row : Page("protocol.md").Table("Blocks")) {
        EXPECT_EQ(unit::AddressOf(row.at(1)), unit::BlockBase(Number(row.at(0))));
    }
}

class BlockRow : public MemoryMap, public ::testing::WithParamInterface<Cells>
{
};

TEST_P(BlockRow, IsTheAddressInTheManagersFrames)
{
    const double index = Number(GetParam().at(0)) - 1;

    const std::string frame =
        FrameOf([&](DeviceLink& link) { SendHeaderFrame(link, panel.header, index); });

    EXPECT_EQ(frame.substr(1, 5), GetParam().at(1));
}

INSTANTIATE_TEST_SUITE_P(Page, BlockRow, ::testing::ValuesIn(Page("protocol.md").Table("Blocks")));

TEST_F(MemoryMap, ColumnsComeFromTheBytesThatThePageSays)
{
    unit::Memory memory;
    memory.Put(0x030, "0010"); // one row, at 1.0 m
    memory.Put(0x040, "1");
    memory.Put(0x050, "4");
    std::string title = "Depth";
    std::string expected = "001.0; ";
    for (const Cells& row : page.Table("A page of readings")) {
        const auto [high, low] = Pair(row.at(0));
        memory.Put(0x100 + static_cast<std::uint32_t>(high), std::string(1, '\x80'));
        memory.Put(0x100 + static_cast<std::uint32_t>(low),
                   std::string(1, static_cast<char>(row.at(1).at(0) + row.at(1).at(1))));
        std::string reading;
        DecodeSampleWord(
            "80" + unit::HexPair(static_cast<std::uint8_t>(row.at(1).at(0) + row.at(1).at(1))),
            reading);
        expected += reading + "; ";
        title += ";" + row.at(1);
    }
    HeardLine other(*this, memory);

    Run("download");

    // After the title record and the blank one, and the forty characters of the row's text.
    EXPECT_EQ(FileBytes(folder / "datiram.dat").substr(2 * 113 + 40, 71), expected);
    EXPECT_EQ(FileBytes(folder / "datiram.dat").substr(0, title.size()), title);
}

TEST(ProtocolPage, ReadsWordsAsTheManagerDoes)
{
    const auto rows = Page("protocol.md").Table("A word");
    EXPECT_EQ(rows.size(), 8U);
    for (const Cells& row : rows) {
        std::string reading;
        DecodeSampleWord(row.at(0), reading);
        EXPECT_EQ(reading, row.at(1));
    }
}

TEST_F(MemoryMap, GivesTheDigitsOfTheClock)
{
    const auto rows = page.Table("The clock");
    Run("read-clock");

    const std::string answer = heard.said.back().bytes;
    ASSERT_EQ(rows.size(), Shown().size()); // the boxes in the order of the line
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto [first, second] = Pair(rows[i].at(0));
        EXPECT_EQ(second, first + 1);
        EXPECT_EQ(answer.substr(static_cast<std::size_t>(first) - 1, 2), Shown().at(i));
    }
    EXPECT_THAT(rows, ::testing::ElementsAre(
                          ::testing::Contains("year"), ::testing::Contains("month"),
                          ::testing::Contains("day"), ::testing::Contains("hours"),
                          ::testing::Contains("minutes"), ::testing::Contains("seconds")));
    EXPECT_EQ(answer, "140423101530\r\n");
}

} // namespace
} // namespace tarvex::tests
