#include "faults/fault_test.h"
#include "platform/sqlite/raw_database.h"

#include <thread>

namespace tarvex::tests
{
namespace
{

using std::chrono::microseconds;
using ::testing::IsEmpty;

const std::string kReadHeaders = "click ssCommand2";
const std::string kWriteHeaders = "click Command1";

/// A manager that is killed inside one of the two operations of the survey database.
class KilledSurveyTest : public FaultTest
{
protected:
    /// Opens the database panel, with the unit's headers in the table.
    static void Prepare(Manager& manager)
    {
        manager.DoAll({"click Command8", "service Database Tar Vex", "form Form4"});
    }

    /// Folds the unit's headers into the database, and gives the time that it took.
    microseconds ReadHeaders()
    {
        Manager manager(desk);
        Prepare(manager);
        const auto time = TimeOf(manager, kReadHeaders);
        EXPECT_EQ(manager.Close(), 0);
        return time;
    }

    struct Written {
        microseconds time;
        std::vector<std::string> table;
        std::vector<std::string> rows;
    };

    /// Writes the marked rows into the table, and gives what came of it.
    Written WriteHeaders()
    {
        Manager manager(desk);
        Prepare(manager);
        const auto time = TimeOf(manager, kWriteHeaders);
        EXPECT_EQ(manager.Close(), 0);
        return {time, HeadersIn(desk.HeaderTable()), SurveyRows(desk.Database())};
    }

    /// The next manager takes in what was left and folds the thirty headers into it.
    void ExpectNextReadingWorks()
    {
        ReadHeaders();
        const auto rows = SurveyRows(desk.Database());
        EXPECT_EQ(rows.size(), 30U);
        EXPECT_THAT(OfDatabase(desk.Database(), rows, rows), IsEmpty());
        EXPECT_FALSE(std::filesystem::exists(desk.Database().string() + "-journal"));
        ExpectNextStartWorks();
    }

    /// The rows that other programs see at this moment.
    std::vector<std::string> CommittedRows() const
    {
        std::vector<std::string> rows;
        if (!std::filesystem::exists(desk.Database())) return rows;
        RawDatabase raw(desk.Database());
        if (raw.Run("SELECT 1 FROM sqlite_schema WHERE name = 'tar_vex'").isEmpty()) return rows;
        for (const QString& row : raw.Run("SELECT * FROM tar_vex ORDER BY rowid"))
            rows.push_back(row.toStdString());
        return rows;
    }

    /// Kills a manager inside the step, at some moment of it, and gives the rows that others had
    /// seen before.
    std::vector<std::string> KillInStep(const std::string& step, microseconds whole)
    {
        Manager manager(desk);
        Prepare(manager);
        manager.Begin(step);
        std::this_thread::sleep_for(Moment(whole));
        auto seen = CommittedRows();
        manager.Kill();
        Note("kills");
        return seen;
    }

    void RestoreDatabase(const std::string& bytes) const
    {
        std::filesystem::remove(desk.Database());
        std::filesystem::remove(desk.Database().string() + "-journal");
        if (!bytes.empty()) WriteFile(desk.Database(), bytes);
    }
};

TEST_F(KilledSurveyTest, KeepsTheRowsThatReadHeadersHadFinished)
{
    const std::vector<std::string> secondSurvey = {
        "--fill", "1:client=DELVALLE,site=FRANA 02,tube=T01,nlet=01,date=130526", "--fill",
        "2:client=DELVALLE,site=FRANA 02,tube=T02,nlet=01,date=130526"};
    StartUnit();
    const auto whole = ReadHeaders();
    const auto firstRows = SurveyRows(desk.Database());
    const auto firstBytes = FileBytes(desk.Database());
    ASSERT_EQ(firstRows.size(), 30U);
    StartUnit(secondSurvey);
    ReadHeaders();
    const auto secondRows = SurveyRows(desk.Database());
    ASSERT_NE(secondRows, firstRows);

    for (int round = 0; round < Rounds(5); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        const bool isFirst = chance.Below(2) == 0;
        StartUnit(isFirst ? std::vector<std::string>() : secondSurvey);
        RestoreDatabase(isFirst ? "" : firstBytes);

        const auto seen = KillInStep(kReadHeaders, whole);
        EXPECT_THAT(OfDatabase(desk.Database(), seen, isFirst ? firstRows : secondRows) +
                        OfPlaces(desk, {}),
                    IsEmpty());
        ExpectNextReadingWorks();
    }
}

TEST_F(KilledSurveyTest, PutsAHeaderIntoTheTableBeforeItsMarkIsCleared)
{
    StartUnit();
    ReadHeaders();
    RawDatabase(desk.Database()).Run("UPDATE tar_vex SET b = rowid + 1 WHERE rowid < 29");
    const auto markedRows = SurveyRows(desk.Database());
    const auto markedBytes = FileBytes(desk.Database());
    const auto [whole, table, rows] = WriteHeaders();
    ASSERT_NE(rows, markedRows);

    for (int round = 0; round < Rounds(5); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        RestoreDatabase(markedBytes);

        const auto seen = KillInStep(kWriteHeaders, whole);
        EXPECT_THAT(OfDatabase(desk.Database(), seen, rows) + OfPlaces(desk, {}), IsEmpty());
        auto before = DemoTable();
        const auto now = SurveyRows(desk.Database());
        for (std::size_t row = 0; row < 28 && now[row] == rows[row]; ++row)
            before[row + 1] = table[row + 1];
        auto after = table;
        after[0] = before[0];
        EXPECT_THAT(OfHeaderTable(desk.HeaderTable(), before, after), IsEmpty());
        ExpectNextReadingWorks();
    }
}

} // namespace
} // namespace tarvex::tests
