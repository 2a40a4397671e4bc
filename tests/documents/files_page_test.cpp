#include "documents/conversation_test.h"
#include "documents/header_fields.h"

#include "core/report_records.h"

namespace tarvex::tests
{
namespace
{

std::string WithoutPadding(std::string text)
{
    return text.erase(text.find_last_not_of(' ') + 1);
}

/// The example's survey has been downloaded; its header is the first of the header table too.
class FilesPage : public ConversationTest
{
protected:
    void SetUp() override
    {
        Run("download");
        for (const Cells& row : files.Table("The reports"))
            names_[row.at(0)] = row.at(1);
    }

    std::string Content(const std::string& file) const
    {
        return FileBytes(folder / names_.at(file));
    }

    /// Record `number` of a file of 42-byte records, without its end.
    static std::string LineOf(const std::string& report, int number)
    {
        const auto start = static_cast<std::size_t>(number - 1) * sizeof(ReportRecord);
        return report.substr(start, sizeof(ReportRecord::text));
    }

    const Page files{"files.md"};

private:
    std::map<std::string, std::string> names_;
};

TEST_F(FilesPage, FieldsOfTheHeaderTableAreThoseOfTheRecord)
{
    const auto rows = files.Table("The header table");
    const auto fields = HeaderFields();
    ASSERT_EQ(rows.size(), fields.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(Number(rows[i].at(0))), fields[i].offset);
        EXPECT_EQ(static_cast<std::size_t>(Number(rows[i].at(1))), fields[i].width);
        EXPECT_EQ(rows[i].at(2), fields[i].name);
        EXPECT_EQ(rows[i].at(4), WithoutPadding(fields[i].Of(StoredHeader(1))));
    }
}

TEST_F(FilesPage, HeaderTableIsTheOneOfTheExample)
{
    const std::string table = FileBytes(state.headerFilePath);
    EXPECT_EQ(table.size(), 30U * 77);
    EXPECT_EQ(Difference(files.Example("intestazione"), Dump(table)), "");
}

TEST_F(FilesPage, ReportsHaveTheNamesOfThePage)
{
    EXPECT_THAT(NamesIn(folder.Path()),
                ::testing::IsSupersetOf({files.Table("The reports").at(0).at(1),
                                         files.Table("The reports").at(1).at(1),
                                         files.Table("The reports").at(2).at(1)}));
}

TEST_F(FilesPage, HeadReportHasTheLinesOfThePage)
{
    const std::string report = Content("head report");
    const auto rows = files.Table("The head report");
    ASSERT_EQ(rows.size(), 10U);
    for (const Cells& row : rows) {
        const int record = Number(row.at(0));
        EXPECT_EQ(WithoutPadding(LineOf(report, record)), row.at(1) + row.at(3));
        if (record > 1) {
            EXPECT_EQ(WithoutPadding(LineOf(report, record - 1)), "");
        }
    }
    EXPECT_EQ(report.size(), 19U * sizeof(ReportRecord));
}

TEST_F(FilesPage, HeadReportIsTheOneOfTheExample)
{
    EXPECT_EQ(Difference(files.Example("head-report"), Dump(Content("head report"))), "");
}

TEST_F(FilesPage, WorkFileIsTheOneOfTheExample)
{
    EXPECT_EQ(Content("work file").size(), (2U + 3) * sizeof(DataRecord));
    EXPECT_EQ(Difference(files.Example("datiram.dat"), Dump(Content("work file"))), "");
}

TEST_F(FilesPage, DataReportIsTheOneOfTheExample)
{
    EXPECT_EQ(Content("data report").size(), (3U + 4) * sizeof(DataRecord));
    EXPECT_EQ(Difference(files.Example("data-report"), Dump(Content("data report"))), "");
}

struct RowField {
    const char* name;
    std::size_t offset;
    std::size_t width;
};

TEST_F(FilesPage, FieldsOfARowAreThoseOfTheRecord)
{
#define TARVEX_FIELD(field)                                                                        \
    RowField                                                                                       \
    {                                                                                              \
#field, offsetof(DataRecord, field), sizeof(DataRecord::field)                             \
    }
    const std::vector<RowField> fields = {TARVEX_FIELD(text), TARVEX_FIELD(depth), TARVEX_FIELD(a1),
                                          TARVEX_FIELD(b1),   TARVEX_FIELD(a3),    TARVEX_FIELD(b3),
                                          TARVEX_FIELD(a2),   TARVEX_FIELD(b2),    TARVEX_FIELD(a4),
                                          TARVEX_FIELD(b4),   TARVEX_FIELD(end)};
#undef TARVEX_FIELD
    const auto rows = files.Table("The rows");
    ASSERT_EQ(rows.size(), fields.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(Number(rows[i].at(0))), fields[i].offset);
        EXPECT_EQ(static_cast<std::size_t>(Number(rows[i].at(1))), fields[i].width);
        EXPECT_EQ(rows[i].at(2), fields[i].name);
    }
}

} // namespace
} // namespace tarvex::tests
