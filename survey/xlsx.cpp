#include "survey/xlsx.h"

#include "survey/sheet.h"

#include <xlsxwriter.h>

#include <memory>
#include <stdexcept>

namespace tarvex::survey
{

namespace
{
/// Writes down one sheet, row by row.
class SheetWriter
{
public:
    SheetWriter(lxw_workbook* book, const char* name)
        : sheet_(workbook_add_worksheet(book, name)), bold_(workbook_add_format(book))
    {
        format_set_bold(bold_);
    }

    void Text(const std::string& text)
    {
        worksheet_write_string(sheet_, row_, column_++, text.c_str(), nullptr);
    }
    void Title(const std::string& text)
    {
        worksheet_write_string(sheet_, row_, column_++, text.c_str(), bold_);
    }
    void Number(const std::optional<double>& value)
    {
        if (value) worksheet_write_number(sheet_, row_, column_, *value, nullptr);
        ++column_;
    }
    void NextRow()
    {
        ++row_;
        column_ = 0;
    }
    void FreezeTitles() { worksheet_freeze_panes(sheet_, 1, 1); }
    void SetWidth(lxw_col_t last, double width)
    {
        worksheet_set_column(sheet_, 0, last, width, nullptr);
    }

private:
    lxw_worksheet* sheet_;
    lxw_format* bold_;
    lxw_row_t row_ = 0;
    lxw_col_t column_ = 0;
};

void WriteReadings(SheetWriter writer, const Survey& survey)
{
    const auto sheet = SheetOf(survey);
    writer.FreezeTitles();
    for (const auto& title : sheet.titles)
        writer.Title(title);
    writer.NextRow();
    for (const auto& row : sheet.rows) {
        for (const auto& cell : row)
            writer.Number(cell.value);
        writer.NextRow();
    }
}

void WriteSums(SheetWriter& writer, const Verdict& verdict)
{
    for (const auto* title : {"Sums", "Number", "Mean", "Standard deviation", "Median",
                              "Median absolute deviation", "Largest departure", "at depth"})
        writer.Title(title);
    writer.NextRow();
    for (const auto& figures : verdict.sums) {
        const auto& summary = figures.summary;
        writer.Text(figures.pair.Sum());
        writer.Number(static_cast<double>(summary.count));
        for (const double value : {summary.mean, summary.deviation, summary.median, summary.mad,
                                   figures.departure, figures.departureDepth / 10.0})
            writer.Number(value);
        writer.NextRow();
    }
}

void WriteSurvey(SheetWriter writer, const Survey& survey, const Verdict& verdict)
{
    writer.SetWidth(1, 18);
    if (survey.head)
        for (const auto& field : kHeadFields) {
            writer.Title(std::string(field.label));
            writer.Text((*survey.head).*(field.value));
            writer.NextRow();
        }
    writer.Title("Verdict");
    writer.Text(verdict.Line());
    writer.NextRow();
    for (const auto& finding : verdict.findings) {
        writer.Text(finding.check);
        writer.Text(finding.text);
        writer.NextRow();
    }
    writer.NextRow();
    WriteSums(writer, verdict);
}
} // namespace

void WriteXlsx(const Survey& survey, const Verdict& verdict, const std::filesystem::path& path)
{
    lxw_workbook* const book = workbook_new(path.c_str());
    if (book == nullptr) throw std::runtime_error("the spreadsheet cannot be made");
    WriteReadings(SheetWriter(book, "Readings"), survey);
    WriteSurvey(SheetWriter(book, "Survey"), survey, verdict);
    const auto error = workbook_close(book); // frees it, also when it fails
    if (error != LXW_NO_ERROR)
        throw std::runtime_error(std::string("the spreadsheet cannot be written: ") +
                                 lxw_strerror(error));
}

} // namespace tarvex::survey
