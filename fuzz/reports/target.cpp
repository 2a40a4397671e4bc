#include "common/target.h"

#include "common/choices.h"
#include "common/require.h"
#include "support/report_bytes.h"
#include "survey/checks/check.h"
#include "survey/checks/verdict_text.h"
#include "survey/comparison/compare.h"
#include "survey/comparison/compare_text.h"
#include "survey/export/csv.h"
#include "survey/export/json.h"
#include "survey/export/table.h"
#include "survey/reports/reader.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace tarvex::fuzz
{
namespace
{

using namespace survey;

/// "001.5" and so on: the depth of a row, most often as a download has it.
std::string DepthOfRow(Choices& choices, unsigned row)
{
    if (choices.Chance(5)) return choices.HostileText(5);
    const std::string tenths = std::to_string(1000 + 5 * (row + 1));
    return tenths.substr(tenths.size() - 4, 3) + "." + tenths.back();
}

std::string Counts(Choices& choices)
{
    if (choices.Chance(5)) return choices.HostileText(6);
    const std::string counts = std::to_string(100'000 + choices.Below(32'768));
    return (choices.Below(2) == 0 ? "+" : "-") + counts.substr(1);
}

std::string AnyDataReport(Choices& choices)
{
    const std::size_t columns = choices.Below(2) == 0 ? 4 : 8;
    std::vector<std::string> rows;
    for (unsigned row = choices.Below(30); row > 0; --row) {
        std::vector<std::string> readings(columns);
        std::ranges::generate(readings, [&] { return Counts(choices); });
        const unsigned place = choices.Chance(8) ? row + 1 : row; // now and then one comes again
        rows.push_back(tests::RowRecord(DepthOfRow(choices, place), readings));
    }
    return choices.Below(2) == 0 ? tests::DataReportOf(rows) : tests::WorkFileOf(rows);
}

std::string AnyHeadReport(Choices& choices)
{
    std::vector<std::string> lines;
    lines.reserve(kHeadFields.size());
    for (const HeadField& field : kHeadFields)
        lines.push_back(std::string(field.label) + ": " + choices.HostileText(30));
    return tests::HeadReportOf(lines);
}

/// A report as it comes through other hands.
std::string AnyReport(Choices& choices, bool head)
{
    if (choices.Chance(20)) return choices.Bytes(1024);
    std::string report = head ? AnyHeadReport(choices) : AnyDataReport(choices);
    for (unsigned changes = choices.Chance(50) ? choices.Below(6) : 0; changes > 0; --changes) {
        const std::size_t place = choices.Below(65536) % (report.size() + 1);
        if (choices.Below(2) == 0)
            report.insert(place, choices.HostileText(8));
        else
            report.erase(place, choices.Below(200));
    }
    return report;
}

void RequireSound(const Contents& contents)
{
    Require((contents.kind == FileKind::None) == !contents.refusal.empty(),
            "a refusal has a reason");
    Require(contents.anomalies.size() <= kMostAnomalies, "anomalies are a hundred at most");
    for (std::size_t row = 1; row < contents.rows.size(); ++row)
        Require(contents.rows[row - 1].depth < contents.rows[row].depth, "each depth has one row");
    for (const Row& row : contents.rows)
        for (const auto& reading : row.readings)
            Require(!reading || std::abs(reading->counts) <= kLargestReading,
                    "a reading is a word");
}

Survey AnySurvey(Choices& choices)
{
    Survey survey;
    Contents data = Read(AnyReport(choices, false));
    RequireSound(data);
    survey.rows = std::move(data.rows);
    survey.anomalies = std::move(data.anomalies);
    survey.unfinished = data.kind == FileKind::WorkFile;
    if (choices.Chance(30)) return survey;
    const Contents head = Read(AnyReport(choices, true));
    RequireSound(head);
    if (head.kind == FileKind::HeadReport) survey.head = head.head;
    return survey;
}

/// What is printed of it, in each of the forms.
void RequirePrintable(const Survey& survey)
{
    const Verdict verdict = Check(survey);
    Require(!verdict.Line().empty() && !TextOf(verdict).empty(), "a verdict says something");
    Require(!TableOf(survey).empty(), "a table has its titles");
    const std::string csv = CsvOf(survey, {});
    Require(std::ranges::count(csv, '\n') == std::ssize(survey.rows) + 1, "a line is a depth");
    Require(JsonOf(survey, verdict).ends_with("}\n"), "JSON ends");
}

void RequireComparable(const Survey& base, const Survey& now, SumFrom from)
{
    const Comparison comparison = Compare(base, now, from);
    Require(!TextOf(comparison, Probe{20000, 0.5}).empty(), "a comparison says something");
    Require(!JsonOf(comparison, std::nullopt).empty(), "a comparison is JSON too");
    for (const ComparedPair& pair : comparison.pairs)
        Require(std::isfinite(pair.SumsChange()), "a figure is a number");
}

} // namespace
} // namespace tarvex::fuzz

void tarvex::fuzz::RunInput(std::string_view input)
{
    Choices choices(input);
    const Survey base = AnySurvey(choices);
    const Survey now = choices.Chance(30) ? base : AnySurvey(choices);
    RequirePrintable(base);
    RequireComparable(base, now, choices.Below(2) == 0 ? SumFrom::Bottom : SumFrom::Top);
}
