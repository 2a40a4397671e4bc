#include "core/block_header.h"
#include "core/report_records.h"
#include "core/working_state.h"

#include "support/logic_test.h"

#include <cstring>

namespace tarvex::tests
{
namespace
{

template <class Record>
std::string BytesOf(const Record& record)
{
    std::string bytes(sizeof(Record), '\0');
    std::memcpy(bytes.data(), &record, sizeof(Record));
    return bytes;
}

TEST(FixedText, HoldsNulBytesUntilAssigned)
{
    EXPECT_EQ(FixedText<3>().Text(), std::string(3, '\0'));
}

TEST(FixedText, PadsAShortTextAndCutsALongOne)
{
    FixedText<4> field;
    field = "12";
    EXPECT_EQ(field.View(), "12  ");
    field = "123456";
    EXPECT_EQ(field.View(), "1234");
    field = "";
    EXPECT_EQ(field.View(), "    ");
}

TEST(FixedText, KeepsControlAndHighBytes)
{
    FixedText<5> field;
    field = std::string_view("\0\r\n\xE0\xFF", 5);
    EXPECT_EQ(field.View(), std::string_view("\0\r\n\xE0\xFF", 5));
}

TEST(BlockHeader, IsSeventySevenBytes)
{
    EXPECT_EQ(sizeof(BlockHeader), 77U);
}

/// A header whose every field is filled with a letter of its own, in the order of the record.
BlockHeader Lettered()
{
    BlockHeader header;
    header.cliente = std::string(9, 'A');
    header.cantiere = std::string(9, 'B');
    header.tubo = std::string(9, 'C');
    header.profondità = std::string(9, 'D');
    header.passo = std::string(9, 'E');
    header.guide = std::string(9, 'F');
    header.nord = std::string(9, 'G');
    header.nlet = std::string(9, 'H');
    header.data = std::string(9, 'I');
    header.ora = std::string(9, 'J');
    header.punto = std::string(9, 'K');
    header.gain1 = std::string(9, 'L');
    header.gain2 = std::string(9, 'M');
    header.zero1 = std::string(9, 'N');
    header.zero2 = std::string(9, 'O');
    return header;
}

TEST(BlockHeader, LaysItsFieldsBackToBackInTheOrderOfTheRecord)
{
    EXPECT_EQ(BytesOf(Lettered()), "AAAAAAAA"
                                   "BBBBBBBB"
                                   "CCCC"
                                   "DDDD"
                                   "E"
                                   "F"
                                   "GGGG"
                                   "HH"
                                   "IIIIIIII"
                                   "JJJJJJJJ"
                                   "K"
                                   "LLLLLLL"
                                   "MMMMMMM"
                                   "NNNNNNN"
                                   "OOOOOOO");
}

TEST(ReportRecord, IsALineOf40BytesAndItsEnd)
{
    ReportRecord record;
    EXPECT_EQ(BytesOf(record), std::string(42, '\0'));
    record.text = std::string(50, 'T');
    record.end = kRecordEnd;
    EXPECT_EQ(BytesOf(record), std::string(40, 'T') + "\r ");
}

TEST(DataRecord, LaysItsColumnsInTheOrderOfTheTitle)
{
    DataRecord record;
    EXPECT_EQ(BytesOf(record), std::string(113, '\0'));
    record.text = "t";
    record.depth = "001.5;";
    record.a1 = "a1;";
    record.b1 = "b1;";
    record.a3 = "a3;";
    record.b3 = "b3;";
    record.a2 = "a2;";
    record.b2 = "b2;";
    record.a4 = "a4;";
    record.b4 = "b4;";
    record.end = kRecordEnd;
    EXPECT_EQ(BytesOf(record), "t" + std::string(39, ' ') +
                                   "001.5; a1;     b1;     a3;     b3;     a2;     b2;     "
                                   "a4;     b4;     \r ");
}

TEST(DataRecord, CutsAReadingThatRunsPastItsColumn)
{
    DataRecord record;
    record.a1 = "+-139264;";
    EXPECT_EQ(record.a1.View(), "+-139264");
}

TEST(DefaultHeader, DiffersInItsClientOnly)
{
    const std::string rest =
        "SITE0000T   000002+00000DDMMYY  hhmmss  0+1.0000+1.0000+0.0000+0.0000";
    EXPECT_EQ(BytesOf(DefaultHeader(0)), "CLIENT 1" + rest);
    EXPECT_EQ(BytesOf(DefaultHeader(8)), "CLIENT 9" + rest);
    EXPECT_EQ(BytesOf(DefaultHeader(9)), "CLIENT10" + rest);
    EXPECT_EQ(BytesOf(DefaultHeader(29)), "CLIENT30" + rest);
}

TEST(DefaultHeader, FillingTheOthersLeavesTheClient)
{
    BlockHeader header = Lettered();
    SetDefaultsButClient(header);
    EXPECT_EQ(header.cliente.View(), "AAAAAAAA");
    header.cliente = "CLIENT 7";
    EXPECT_EQ(header, DefaultHeader(6));
}

TEST(WorkingState, StartsWithItsDefaults)
{
    const WorkingState state;
    EXPECT_EQ(state.blockHeader, DefaultHeader(0));
    EXPECT_EQ(state.headerFilePath, "");
    EXPECT_EQ(state.comPortNumber, 1);
    EXPECT_EQ(state.tickCounter, 0);
    EXPECT_EQ(state.readAddrBlock + state.readAddrBank + state.readAddrPage, "");
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(state.downloadBlock, 1);
    EXPECT_EQ(state.reportFolder, "");
    EXPECT_EQ(state.reportFileName, "");
    EXPECT_EQ(BytesOf(state.reportRecord), std::string(42, '\0'));
    EXPECT_EQ(BytesOf(state.dataRecord), std::string(113, '\0'));
    EXPECT_EQ(BytesOf(state.dataRecordIn), std::string(113, '\0'));
    EXPECT_EQ(state.depthText, "");
}

} // namespace
} // namespace tarvex::tests
