#include "conversation/report_checks.h"

#include "support/report_bytes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace tarvex::tests
{

namespace
{

constexpr std::size_t kReportRecord = 42;
constexpr std::size_t kDataRecord = 113;

/// The records of a file; the test fails when one is cut short or does not end as it must.
std::vector<std::string> RecordsOf(const std::string& bytes, std::size_t length)
{
    EXPECT_EQ(bytes.size() % length, 0U) << "a record is cut short";
    std::vector<std::string> records;
    for (std::size_t offset = 0; offset + length <= bytes.size(); offset += length) {
        records.push_back(bytes.substr(offset, length));
        EXPECT_TRUE(records.back().ends_with("\r ")) << records.back();
    }
    return records;
}

void ExpectUpsideDown(const std::string& report, const std::string& work)
{
    std::vector<std::string> rows = RecordsOf(work, kDataRecord);
    ASSERT_GE(rows.size(), 2U);
    EXPECT_EQ(rows[0], TitleRecord());
    EXPECT_EQ(rows[1], BlankDataRecord());
    rows.erase(rows.begin(), rows.begin() + 2);
    EXPECT_EQ(report, DataReportOf(rows));
}

} // namespace

std::string FileEndingIn(const std::filesystem::path& folder, const std::string& ending)
{
    std::string found;
    for (const std::string& name : NamesIn(folder)) {
        if (!name.ends_with(ending)) continue;
        EXPECT_EQ(found, "") << "two of them";
        found = name;
    }
    return found;
}

std::size_t RowsIn(const std::filesystem::path& folder)
{
    const std::size_t records = FileBytes(folder / "datiram.dat").size() / kDataRecord;
    return records < 2 ? 0 : records - 2;
}

void ExpectSoundReports(const std::filesystem::path& folder)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        const std::string bytes = FileBytes(entry.path());
        if (name.ends_with("-dat.dat")) {
            EXPECT_EQ(RecordsOf(bytes, kReportRecord).size(), 19U);
        } else if (name == "datiram.dat") {
            EXPECT_LE(RecordsOf(bytes, kDataRecord).size(), 242U);
        } else {
            EXPECT_TRUE(name.ends_with("-num.dat")) << "an unknown file: " << name;
            ExpectUpsideDown(bytes, FileBytes(folder / "datiram.dat"));
        }
    }
}

} // namespace tarvex::tests
