// Damage made on purpose: each check of the other tests here finds its own.

#include "faults/fault_test.h"
#include "faults/watched_process.h"
#include "platform/sqlite/raw_database.h"
#include "support/report_bytes.h"

#include <atomic>
#include <fstream>
#include <thread>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kHead = "ROSSI   -DIGA A  -T12 -03-dat.dat";
const std::string kData = "ROSSI   -DIGA A  -T12 -03-num.dat";
const std::string kWork = "datiram.dat";

/// A desk after a session that nothing happened to.
class PlantedTest : public ::testing::Test
{
protected:
    PlantedTest()
    {
        const std::vector<std::string> rows = {
            RowRecord("001.0", {"+00001", "+00002", "+00003", "+00004"}),
            RowRecord("000.5", {"+00005", "+00006", "+00007", "+00008"})};
        clean = {{kHead, HeadReportOf(std::vector<std::string>(10, "Client: ;"))},
                 {kWork, WorkFileOf(rows)},
                 {kData, DataReportOf(rows)}};
        for (const auto& [name, bytes] : clean)
            WriteFile(desk.reports / name, bytes);
        WriteTable(OwnTable());
        RawDatabase database(desk.Database());
        database.Run("CREATE TABLE tar_vex (cliente, b)");
        for (const char* client : {"ROSSI", "VERDI", "BIANCHI"})
            database.Run(QStringLiteral("INSERT INTO tar_vex VALUES ('%1', NULL)").arg(client));
        rows_ = SurveyRows(desk.Database());
    }

    void WriteTable(const std::vector<std::string>& records) const
    {
        std::string bytes;
        for (const auto& record : records)
            bytes += record;
        WriteFile(desk.HeaderTable(), bytes);
    }

    Complaints TableComplaints() const
    {
        return OfHeaderTable(desk.HeaderTable(), OwnTable(), OwnTable());
    }
    Complaints ReportComplaints() const { return OfReports(desk.reports, clean); }
    Complaints SurveyComplaints() const { return OfDatabase(desk.Database(), rows_, rows_); }
    Complaints PlaceComplaints() const { return OfPlaces(desk, clean); }

    void Cut(const std::filesystem::path& file, std::uintmax_t bytes) const
    {
        std::filesystem::resize_file(file, std::filesystem::file_size(file) - bytes);
    }

    /// Changes one byte of a file.
    void Spoil(const std::filesystem::path& file, std::size_t place) const
    {
        std::string bytes = FileBytes(file);
        bytes.at(place) ^= 1;
        WriteFile(file, bytes);
    }

    const Sandbox desk;
    Files clean;

private:
    std::vector<std::string> rows_;
};

TEST_F(PlantedTest, NothingIsFoundWhereNothingIsWrong)
{
    EXPECT_THAT(TableComplaints() + ReportComplaints() + SurveyComplaints() + PlaceComplaints(),
                IsEmpty());
}

TEST_F(PlantedTest, AHeaderCutOffIsFound)
{
    Cut(desk.HeaderTable(), 1);
    EXPECT_THAT(TableComplaints(), Contains("the header table ends inside a record"));
}

TEST_F(PlantedTest, AHeaderThatWasNeverWrittenIsFound)
{
    Spoil(desk.HeaderTable(), 2 * 77 + 3);
    EXPECT_THAT(TableComplaints(), Contains(HasSubstr("header 3 is ")));
}

TEST_F(PlantedTest, AnOldHeaderBeforeANewOneIsFound)
{
    auto records = OwnTable();
    records[0] = DefaultRecord(1);
    WriteTable(records);
    EXPECT_THAT(OfHeaderTable(desk.HeaderTable(), OwnTable(), OwnTable()),
                Contains(HasSubstr("header 1 is ")));
    std::vector<std::string> before(30, DefaultRecord(1));
    EXPECT_THAT(OfHeaderTable(desk.HeaderTable(), before, OwnTable()),
                Contains(HasSubstr("header 2 is ")));
}

TEST_F(PlantedTest, AHeaderTooManyIsFound)
{
    auto records = OwnTable();
    records.push_back(records.front());
    WriteTable(records);
    EXPECT_THAT(TableComplaints(), Contains("more than thirty headers"));
}

TEST_F(PlantedTest, ARecordOfAReportCutOffIsFound)
{
    for (const auto& name : {kHead, kWork, kData}) {
        Cut(desk.reports / name, 5);
        EXPECT_THAT(ReportComplaints(), Contains(name + " ends inside a record"));
    }
}

TEST_F(PlantedTest, ARowOfAReportThatWasNeverReadIsFound)
{
    for (const auto& name : {kHead, kWork, kData}) {
        Spoil(desk.reports / name, 60);
        EXPECT_THAT(ReportComplaints(), Contains(name + " holds what was never written"));
    }
}

TEST_F(PlantedTest, ADataReportThatIsNotItsWorkFileUpsideDownIsFound)
{
    Cut(desk.reports / kWork, 113);
    EXPECT_THAT(ReportComplaints(), Contains(kData + " holds what was never written"));
}

TEST_F(PlantedTest, ALostRowIsFound)
{
    RawDatabase(desk.Database()).Run("DELETE FROM tar_vex WHERE cliente = 'BIANCHI'");
    EXPECT_THAT(SurveyComplaints(), Contains("rows are lost"));
}

TEST_F(PlantedTest, ARowTakenBackIsFound)
{
    RawDatabase(desk.Database()).Run("UPDATE tar_vex SET b = '4' WHERE cliente = 'VERDI'");
    EXPECT_THAT(SurveyComplaints(), Contains(HasSubstr("row 2 is VERDI|4")));
}

TEST_F(PlantedTest, ARowTooManyIsFound)
{
    RawDatabase(desk.Database()).Run("INSERT INTO tar_vex VALUES ('NERI', NULL)");
    EXPECT_THAT(SurveyComplaints(), Contains("more rows than were made"));
}

TEST_F(PlantedTest, ADamagedDatabaseIsFound)
{
    // The first page says how many pages there are.
    std::string bytes = FileBytes(desk.Database());
    bytes.append(4096, '\7');
    bytes[31] = static_cast<char>(bytes[31] + 1);
    WriteFile(desk.Database(), bytes);
    EXPECT_THAT(SurveyComplaints(), Contains(HasSubstr("the database: ")));
}

TEST_F(PlantedTest, AFileElsewhereIsFound)
{
    for (const auto& place : {desk.top.Path(), desk.home, desk.start, desk.reports}) {
        WriteFile(place / "stray.dat", "x");
        EXPECT_THAT(PlaceComplaints(),
                    Contains(HasSubstr("a stray stray.dat in " + place.filename().string())));
    }
}

TEST(WatchedProcessTest, SeesMoreMemoryMoreDescriptorsAndAProcessorInUse)
{
    const WatchedProcess self(::getpid());
    const long memory = self.PrivateMemory();
    const int descriptors = self.Descriptors();
    const std::string more(4'000'000, 'x');
    std::ofstream file("/dev/null");
    EXPECT_GT(self.PrivateMemory(), memory + 3'000);
    EXPECT_EQ(self.Descriptors(), descriptors + 1);

    std::atomic<bool> done = false;
    std::thread busy([&done] {
        while (!done) {
        }
    });
    double load = 0;
    for (int tries = 0; load < 0.1 && tries < 100; ++tries) // others want the processor too
        load = self.LoadWithin(std::chrono::milliseconds(200));
    done = true;
    EXPECT_GT(load, 0.1);
    busy.join();
}

/// A tool of these tests must do what they take it for.
TEST_F(FaultTest, ADiskIsFullAfterExactlySoManyBytes)
{
    StartUnit();
    Manager manager(desk);
    manager.DoAll({"reports " + desk.reports.string(), "tab 2",
                   "disk " + std::to_string(30 * 77 + 19 * 42 + 113 * 5)});
    manager.Do("click command3d1");
    const Files files = FilesIn(desk.reports);
    EXPECT_EQ(files.at(kWork).size(), 113U * 5);
    std::size_t all = 0;
    for (const auto& [name, bytes] : files)
        all += bytes.size();
    EXPECT_EQ(all, 19U * 42 + 113U * 5);
    EXPECT_EQ(manager.Close(), 0);
}

} // namespace
} // namespace tarvex::tests
