#include "survey/export/xlsx.h"

#include "survey/export/sheet.h"
#include "survey/export/xlsx_sheet.h"
#include "survey/files/output_file.h"

#include <xlsxwriter.h>

#include <stdexcept>

namespace tarvex::survey
{

namespace
{
void WriteReadings(XlsxSheet writer, const Survey& survey)
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

void WriteSums(XlsxSheet& writer, const Verdict& verdict)
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

void WriteSurvey(XlsxSheet writer, const Survey& survey, const Verdict& verdict)
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
    PutBytes(path, {}); // refuses in our words: the library prints its own
    lxw_workbook* const book = workbook_new(path.c_str());
    if (book == nullptr) throw std::runtime_error("the spreadsheet cannot be made");
    WriteReadings(XlsxSheet(book, "Readings"), survey);
    WriteSurvey(XlsxSheet(book, "Survey"), survey, verdict);
    const auto error = workbook_close(book); // frees it, also when it fails
    if (error != LXW_NO_ERROR)
        throw std::runtime_error(std::string("the spreadsheet cannot be written: ") +
                                 lxw_strerror(error));
}

} // namespace tarvex::survey
