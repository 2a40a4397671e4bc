#include "core/record_file.h"

#include "core/failure.h"
#include "support/logic_test.h"
#include "support/system_limits.h"

#include <limits>

namespace tarvex::tests
{
namespace
{

using Record = std::array<char, 4>;

constexpr Record kAaaa = {'a', 'a', 'a', 'a'};
constexpr Record kBbbb = {'b', 'b', 'b', 'b'};
constexpr Record kBlank = {' ', ' ', ' ', ' '};

class RecordFileTest : public ::testing::Test
{
protected:
    Record GetRecord(double number)
    {
        Record record = {'?', '?', '?', '?'};
        file.Get(number, record);
        return record;
    }

    TemporaryFolder folder;
    std::filesystem::path path = folder / "table";
    RecordFile file{sizeof(Record)};
};

TEST_F(RecordFileTest, MakesAMissingFileAndLeavesItEmpty)
{
    file.Open(path);
    EXPECT_TRUE(file.IsOpen());
    EXPECT_FALSE(file.EndOfFile());
    file.Close();
    EXPECT_EQ(FileBytes(path), "");
}

TEST_F(RecordFileTest, NeverTruncatesAnExistingFile)
{
    WriteFile(path, "111122223333tail");
    file.Open(path);
    file.Put(2, kBbbb);
    file.Close();
    EXPECT_EQ(FileBytes(path), "1111bbbb3333tail");
}

TEST_F(RecordFileTest, OpenEmptiedDropsWhatTheFileHeld)
{
    WriteFile(path, "111122223333");
    file.OpenEmptied(path);
    file.Put(1, kAaaa);
    file.Close();
    EXPECT_EQ(FileBytes(path), "aaaa");
}

TEST_F(RecordFileTest, OpenEmptiedMakesAMissingFile)
{
    file.OpenEmptied(path);
    EXPECT_EQ(FileBytes(path), "");
}

TEST_F(RecordFileTest, APutHasReachedTheSystemWhenItReturns)
{
    file.Open(path);
    file.Put(1, kAaaa);
    EXPECT_EQ(FileBytes(path), "aaaa");
}

TEST_F(RecordFileTest, APutBeyondTheEndFillsTheGapWithZeroBytes)
{
    WriteFile(path, "11");
    file.Open(path);
    file.Put(3, kAaaa);
    EXPECT_EQ(FileBytes(path), "11" + std::string(6, '\0') + "aaaa");
    EXPECT_EQ(GetRecord(2), Record{});
    EXPECT_FALSE(file.EndOfFile());
}

TEST_F(RecordFileTest, KeepsEveryByteValue)
{
    const Record odd = {'\0', '\n', '\r', '\xFF'};
    file.Open(path);
    file.Put(1, odd);
    EXPECT_EQ(GetRecord(1), odd);
    EXPECT_EQ(FileBytes(path), std::string("\0\n\r\xFF", 4));
}

TEST_F(RecordFileTest, AGetPastTheEndGivesBlanksAndTheFlagAndIsNoFailure)
{
    WriteFile(path, "1111");
    file.Open(path);
    EXPECT_EQ(GetRecord(2), kBlank);
    EXPECT_TRUE(file.EndOfFile());
    EXPECT_EQ(FileBytes(path), "1111");
}

TEST_F(RecordFileTest, APartOfARecordAtTheEndGivesItsBytesThenBlanksAndTheFlag)
{
    WriteFile(path, "111122");
    file.Open(path);
    EXPECT_EQ(GetRecord(2), (Record{'2', '2', ' ', ' '}));
    EXPECT_TRUE(file.EndOfFile());
    EXPECT_EQ(GetRecord(3), kBlank);
    EXPECT_EQ(FileBytes(path), "111122");
}

TEST_F(RecordFileTest, TheBytesOfAPartOfARecordMayBeAnything)
{
    WriteFile(path, std::string("\0\n\xFF", 3));
    file.Open(path);
    EXPECT_EQ(GetRecord(1), (Record{'\0', '\n', '\xFF', ' '}));
    EXPECT_TRUE(file.EndOfFile());
}

TEST_F(RecordFileTest, TheFlagIsFalseAfterOpenAndAfterTheLastWholeRecord)
{
    WriteFile(path, "1111");
    file.Open(path);
    EXPECT_FALSE(file.EndOfFile());
    GetRecord(1);
    EXPECT_FALSE(file.EndOfFile());
    GetRecord(2);
    EXPECT_TRUE(file.EndOfFile());
    GetRecord(1);
    EXPECT_FALSE(file.EndOfFile());
    GetRecord(2);
    file.Close();
    file.Open(path);
    EXPECT_FALSE(file.EndOfFile());
}

TEST_F(RecordFileTest, AGetAfterOnePastTheEndReadsAgain)
{
    file.Open(path);
    GetRecord(1);
    file.Put(1, kAaaa);
    EXPECT_EQ(GetRecord(1), kAaaa);
}

TEST_F(RecordFileTest, APutAfterAGetPastTheEndIsWhereItsNumberSays)
{
    file.Open(path);
    file.Put(1, kAaaa);
    GetRecord(9);
    file.Put(2, kBbbb);
    GetRecord(1);
    file.Put(3, kAaaa);
    file.Put(2, kAaaa);
    file.Put(3, kBbbb);
    EXPECT_EQ(FileBytes(path), "aaaaaaaabbbb");
}

TEST_F(RecordFileTest, SeesWhatAnotherOpeningHasWritten)
{
    WriteFile(path, "11112222");
    file.Open(path);
    GetRecord(1);
    RecordFile other(sizeof(Record));
    other.Open(path);
    other.Put(2, kBbbb);
    EXPECT_EQ(GetRecord(2), kBbbb);
}

class BadRecordNumberTest : public RecordFileTest, public ::testing::WithParamInterface<double>
{
};

TEST_P(BadRecordNumberTest, FailsAndChangesNothing)
{
    WriteFile(path, "1111");
    file.Open(path);
    Record record = kAaaa;
    EXPECT_THROW(file.Get(GetParam(), record), RunTimeFailure);
    EXPECT_EQ(record, kAaaa);
    EXPECT_FALSE(file.EndOfFile());
    EXPECT_THROW(file.Put(GetParam(), record), RunTimeFailure);
    EXPECT_EQ(FileBytes(path), "1111");
}

INSTANTIATE_TEST_SUITE_P(Table, BadRecordNumberTest,
                         ::testing::Values(0, -1, 0.5, 2.5, 1.0000001, -0.0, 1e300,
                                           std::numeric_limits<double>::quiet_NaN(),
                                           std::numeric_limits<double>::infinity(),
                                           -std::numeric_limits<double>::infinity()));

TEST_F(RecordFileTest, NothingWorksOnAFileThatIsNotOpen)
{
    Record record = kAaaa;
    EXPECT_THROW(file.Get(1, record), RunTimeFailure);
    EXPECT_THROW(file.Put(1, record), RunTimeFailure);
    EXPECT_THROW((void)file.EndOfFile(), RunTimeFailure);
    EXPECT_NO_THROW(file.Close());
    EXPECT_EQ(record, kAaaa);
}

TEST_F(RecordFileTest, AClosedFileTakesNoMorePuts)
{
    file.Open(path);
    file.Close();
    EXPECT_THROW(file.Put(1, kAaaa), RunTimeFailure);
    EXPECT_EQ(FileBytes(path), "");
}

TEST_F(RecordFileTest, FailsToOpenTwice)
{
    file.Open(path);
    EXPECT_THROW(file.Open(folder / "other"), RunTimeFailure);
    EXPECT_FALSE(std::filesystem::exists(folder / "other"));
    EXPECT_NO_THROW(file.Put(1, kAaaa));
}

TEST_F(RecordFileTest, APutOnAFullDiskFailsAndLeavesTheLength)
{
    SKIP_WHERE_NO_DISK_FILLS();
    file.Open(path);
    file.Put(1, kAaaa);
    {
        const FullDisk full(6); // room for half of the second record
        EXPECT_THROW(file.Put(2, kBbbb), RunTimeFailure);
    }
    EXPECT_EQ(FileBytes(path), "aaaa");
}

TEST_F(RecordFileTest, APutFarBeyondTheEndOfAFullDiskLeavesTheLength)
{
    SKIP_WHERE_NO_DISK_FILLS();
    file.Open(path);
    file.Put(1, kAaaa);
    {
        const FullDisk full(18);
        EXPECT_THROW(file.Put(5, kBbbb), RunTimeFailure);
        EXPECT_THROW(file.Put(9, kBbbb), RunTimeFailure);
    }
    EXPECT_EQ(FileBytes(path), "aaaa");
}

/// Another program has put its own file in the place of the one that is open.
TEST_F(RecordFileTest, APutOnAFullDiskLeavesAnotherFileInItsPlaceWhole)
{
    SKIP_WHERE_NO_DISK_FILLS();
    file.Open(path);
    std::filesystem::remove(path);
    WriteFile(path, "of another program");
    {
        const FullDisk full(2); // room for half of the first record
        EXPECT_THROW(file.Put(1, kAaaa), RunTimeFailure);
    }
    EXPECT_EQ(FileBytes(path), "of another program");
}

TEST_F(RecordFileTest, APutOnAFullDiskLeavesWhatAnotherProgramHasAdded)
{
    SKIP_WHERE_NO_DISK_FILLS();
    file.Open(path);
    file.Put(1, kAaaa);
    WriteFile(path, "aaaaof another program");
    {
        const FullDisk full(6); // room for half of the second record
        EXPECT_THROW(file.Put(2, kBbbb), RunTimeFailure);
    }
    EXPECT_EQ(FileBytes(path), "aaaabb another program");
}

TEST_F(RecordFileTest, GoesOnWorkingAfterAPutThatFailed)
{
    SKIP_WHERE_NO_DISK_FILLS();
    file.Open(path);
    file.Put(1, kAaaa);
    {
        const FullDisk full(6);
        EXPECT_THROW(file.Put(2, kBbbb), RunTimeFailure);
        EXPECT_EQ(GetRecord(1), kAaaa);
        EXPECT_NO_THROW(file.Put(1, kBbbb)); // within the room there is
    }
    EXPECT_NO_THROW(file.Put(2, kAaaa));
    EXPECT_EQ(FileBytes(path), "bbbbaaaa");
}

TEST_F(RecordFileTest, APutToADeviceWithoutRoomFails)
{
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no such device here";
    file.Open("/dev/full");
    EXPECT_THROW(file.Put(1, kAaaa), RunTimeFailure);
}

} // namespace
} // namespace tarvex::tests
