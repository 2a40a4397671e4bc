#include "database/read_headers_test.h"
#include "documents/header_fields.h"
#include "documents/page.h"
#include "platform/sqlite/raw_database.h"

namespace tarvex::tests
{
namespace
{

/// The survey database, with the example's header read into it.
class SurveyPage : public ReadHeadersTest
{
protected:
    void SetUp() override
    {
        BlockHeader header = DefaultHeader(0);
        header.cliente = "ROSSI";
        header.cantiere = "DIGA A";
        header.tubo = "T12";
        header.profondità = "0015";
        header.nord = "+045";
        header.nlet = "03";
        header.data = "120426";
        header.ora = "093015";
        PutHeader(1, header);
        Read();
    }

    QStringList Ask(const QString& statement) const
    {
        return RawDatabase(folder / "tar_vex.mdb").Run(statement);
    }

    /// The page's rows, with one for each of the readings.
    std::vector<Cells> Columns() const
    {
        std::vector<Cells> columns;
        for (const Cells& row : page.Table("The survey database")) {
            const std::string several = " to l25";
            const auto found = row.at(0).find(several);
            if (found == std::string::npos) columns.push_back(row);
            for (int slot = 0; found != std::string::npos && slot < kSlotCount; ++slot) {
                columns.push_back(row);
                columns.back().at(0) = "l" + std::to_string(slot);
            }
        }
        return columns;
    }

    const Page page{"files.md"};
};

TEST_F(SurveyPage, ColumnsAreThoseOfTheTable)
{
    QStringList expected;
    for (const Cells& column : Columns()) {
        const std::string type = column.at(2) == "none" ? "" : column.at(2);
        expected += QString::fromStdString(column.at(0) + "|" + type);
    }
    EXPECT_EQ(Ask("SELECT name, type FROM pragma_table_info('tar_vex')").join("\n").toStdString(),
              expected.join("\n").toStdString());
}

TEST_F(SurveyPage, ColumnsHaveTheWidthsOfTheHeader)
{
    for (const Cells& column : Columns()) {
        if (column.at(0) == "b") continue;
        const std::size_t width = column.at(0).starts_with("l")
                                      ? sizeof(BlockHeader::data) + sizeof(BlockHeader::ora)
                                      : FieldNamed(column.at(0)).width;
        EXPECT_EQ(static_cast<std::size_t>(Number(column.at(1))), width) << column.at(0);
    }
}

TEST_F(SurveyPage, RowIsTheOneOfTheExample)
{
    std::vector<std::string> row;
    for (const Cells& column : Columns()) {
        const QString name = QString::fromStdString(column.at(0));
        const QString value = Ask("SELECT quote([" + name + "]) FROM tar_vex LIMIT 1").join("");
        if (value != "NULL") row.push_back((name + " = " + value).toStdString());
    }
    EXPECT_EQ(Difference(page.Example("survey-row"), row), "");
}

TEST_F(SurveyPage, IndexHasTheNameOfThePage)
{
    EXPECT_EQ(Ask("SELECT name FROM sqlite_master WHERE type = 'index'"),
              QStringList{"tar_vex_tube"});
}

} // namespace
} // namespace tarvex::tests
