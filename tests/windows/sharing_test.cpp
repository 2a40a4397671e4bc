#include "core/failure.h"
#include "core/record_file.h"
#include "platform/sqlite/file_status.h"
#include "platform/sqlite/sqlite_connection.h"
#include "platform/sqlite/sqlite_engine.h"
#include "platform/windows_system.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>

#undef DeleteFile // the system's name for another operation

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;
using Record = std::array<char, 77>;

constexpr DWORD kWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kWithNobody = 0;

/// Another program that has a file open.
platform::SystemHandle OpenedElsewhere(const fs::path& file, DWORD shared)
{
    platform::SystemHandle handle(::CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, shared,
                                                nullptr, OPEN_ALWAYS, 0, nullptr));
    EXPECT_TRUE(handle);
    return handle;
}

class WindowsSharing : public ::testing::Test
{
protected:
    TemporaryFolder folder;
    const fs::path table = folder / "intestazione";
    const fs::path database = folder / "archivio";
};

TEST_F(WindowsSharing, TheHeaderTableIsWrittenWhileAnotherProgramReadsIt)
{
    const auto other = OpenedElsewhere(table, kWithAll);
    RecordFile file(sizeof(Record));
    file.Open(table);
    Record record;
    record.fill('x');
    file.Put(2, record);
    EXPECT_EQ(fs::file_size(table), 2 * sizeof(Record));
}

TEST_F(WindowsSharing, AHeaderTableThatIsKeptByAnotherProgramFailsAndStaysAsItIs)
{
    WriteFile(table, "somebody's");
    {
        const auto other = OpenedElsewhere(table, kWithNobody);
        RecordFile file(sizeof(Record));
        EXPECT_THROW(file.Open(table), RunTimeFailure);
        EXPECT_THROW(DeleteFile(table), RunTimeFailure);
    }
    EXPECT_EQ(FileBytes(table), "somebody's");
}

TEST_F(WindowsSharing, OurHeaderTableCanBeReadByAnotherProgram)
{
    RecordFile file(sizeof(Record));
    file.Open(table);
    EXPECT_TRUE(OpenedElsewhere(table, kWithAll));
}

TEST_F(WindowsSharing, TheDatabaseIsOpenedWhileAnotherProgramHasItOpen)
{
    platform::SqliteEngine engine;
    engine.OpenTable(database);
    const auto other = OpenedElsewhere(database, kWithAll);
    EXPECT_NO_THROW(engine.OpenTable(database));
}

TEST_F(WindowsSharing, ADatabaseThatIsKeptByAnotherProgramFailsAndStaysAsItIs)
{
    platform::SqliteEngine engine;
    engine.OpenTable(database);
    const std::string before = FileBytes(database);
    {
        const auto other = OpenedElsewhere(database, kWithNobody);
        EXPECT_THROW(engine.OpenTable(database), RunTimeFailure);
    }
    EXPECT_EQ(FileBytes(database), before);
}

TEST_F(WindowsSharing, ADatabaseInAWriteOfAnotherProgramIsWaitedForAndThenRefused)
{
    platform::SqliteEngine engine;
    engine.OpenTable(database);
    const platform::SqliteConnection other(database);
    const platform::Transaction writing(other);
    EXPECT_THROW(engine.OpenTable(database), platform::DatabaseLocked);
}

TEST_F(WindowsSharing, NothingStaysOpenAfterAnOperation)
{
    platform::SqliteEngine engine;
    engine.OpenTable(database).reset();
    std::error_code error;
    EXPECT_TRUE(fs::remove(database, error)) << error.message();
}

TEST_F(WindowsSharing, ANameOutsideTheCodePageOpensToo)
{
    platform::SqliteEngine engine;
    const fs::path named = folder.Path() / L"Скважина €";
    EXPECT_NO_THROW(engine.OpenTable(named));
    EXPECT_TRUE(fs::exists(named));
}

TEST_F(WindowsSharing, AFilesStatusTellsItFromAnother)
{
    WriteFile(table, "1");
    WriteFile(database, "22");
    const auto one = platform::StatusOf(table);
    const auto other = platform::StatusOf(database);
    ASSERT_TRUE(one && other);
    EXPECT_EQ(one->size, 1);
    EXPECT_EQ(other->size, 2);
    EXPECT_NE(one->file, other->file);
    EXPECT_EQ(one->device, other->device);
    EXPECT_EQ(platform::StatusOf(table)->file, one->file);
    EXPECT_FALSE(platform::StatusOf(folder / "missing"));
}

TEST_F(WindowsSharing, AFilesTimesAreThoseOfThisCentury)
{
    constexpr std::int64_t kYear = 31'556'952'000'000'000; // nanoseconds
    WriteFile(table, "1");
    const auto status = platform::StatusOf(table);
    ASSERT_TRUE(status);
    for (const std::int64_t time : {status->written, status->changed}) {
        EXPECT_GT(time, 50 * kYear) << "since 1970";
        EXPECT_LT(time, 130 * kYear);
    }
}

TEST_F(WindowsSharing, FilesMayBeMadeInAFolderThatIsThere)
{
    EXPECT_TRUE(platform::MayMakeFilesIn(folder.Path()));
    EXPECT_FALSE(platform::MayMakeFilesIn(folder / "missing"));
}

} // namespace
} // namespace tarvex::tests
