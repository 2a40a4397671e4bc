#include "survey/reports/reader.h"

#include "support/logic_test.h"
#include "support/report_bytes.h"
#include "support/survey.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::survey
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using tests::BlankDataRecord;
using tests::DataReportOf;
using tests::RowRecord;
using tests::SmallSurveyHeadReport;
using tests::SmallSurveyRows;
using tests::TitleRecord;
using tests::WorkFileOf;

std::vector<int> DepthsOf(const Contents& contents)
{
    std::vector<int> depths;
    for (const auto& row : contents.rows)
        depths.push_back(row.depth);
    return depths;
}

std::vector<std::optional<int>> CountsOf(const Row& row)
{
    std::vector<std::optional<int>> counts;
    for (const auto& reading : row.readings)
        counts.push_back(reading ? std::optional(reading->counts) : std::nullopt);
    return counts;
}

std::vector<std::string> AnomaliesOf(const Contents& contents)
{
    std::vector<std::string> texts;
    for (const auto& anomaly : contents.anomalies)
        texts.push_back((anomaly.harmless ? "" : "! ") + std::to_string(anomaly.record) + " " +
                        std::to_string(anomaly.offset) + " " + anomaly.text);
    return texts;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

TEST(ReadHead, GivesTheTenValuesWithoutTheirBlanks)
{
    const auto contents = Read(SmallSurveyHeadReport());
    EXPECT_EQ(contents.kind, FileKind::HeadReport);
    EXPECT_EQ(contents.head, (Head{"CLIENT0", "SITE0000", "T12", "001.5", "0", "2", "+000", "03",
                                   "16/11/26", "09:30:15"}));
    EXPECT_THAT(contents.anomalies, IsEmpty());
}

TEST(ReadHead, TakesOtherLineEndsAndStrippedBlanks)
{
    auto text = Replaced(SmallSurveyHeadReport(), "\r ", "\n");
    text = Replaced(text, "  ", "");
    const auto contents = Read(text);
    EXPECT_EQ(contents.head.client, "CLIENT0");
    EXPECT_EQ(contents.head.time, "09:30:15");
    EXPECT_THAT(AnomaliesOf(contents),
                ElementsAre("1 0 from here on the records are not as long as the manager's"));
}

TEST(ReadHead, NamesTheLinesThatAreMissingOrForeign)
{
    auto report = SmallSurveyHeadReport();
    report.replace(2 * 42, 4, "Sote"); // record 3
    EXPECT_THAT(AnomaliesOf(Read(report)),
                ElementsAre("! 3 84 this line does not belong in a head report",
                            "! 19 756 the line \"Site\" is missing"));
}

TEST(ReadHead, NamesALineThatComesTwiceAndKeepsTheFirst)
{
    auto report = SmallSurveyHeadReport();
    report += tests::Padded("Client: ;OTHER", 40) + "\r ";
    const auto contents = Read(report);
    EXPECT_EQ(contents.head.client, "CLIENT0");
    EXPECT_THAT(AnomaliesOf(contents), ElementsAre("! 20 798 \"Client\" comes again"));
}

TEST(ReadHead, ShowsBytesOfTheUnitAsText)
{
    auto report = SmallSurveyHeadReport();
    report.replace(9, 8,
                   std::string("\xC0"
                               "B\0\x1B    ",
                               8));
    EXPECT_EQ(Read(report).head.client, "\xC3\x80"
                                        "B\uFFFD\uFFFD");
}

TEST(ReadData, GivesTheRowsShallowestFirstWithTheirRecords)
{
    const auto contents = Read(DataReportOf(SmallSurveyRows()));
    EXPECT_EQ(contents.kind, FileKind::DataReport);
    EXPECT_THAT(DepthsOf(contents), ElementsAre(5, 10, 15));
    EXPECT_THAT(CountsOf(contents.rows[2]), ElementsAre(500, -500, 0, 0, std::nullopt, std::nullopt,
                                                        std::nullopt, std::nullopt));
    EXPECT_EQ(contents.rows[0].record, 3U);
    EXPECT_THAT(contents.anomalies, IsEmpty());
}

TEST(ReadData, KeepsTheTwoZerosApart)
{
    const auto row = Read(DataReportOf(SmallSurveyRows())).rows[2];
    EXPECT_FALSE(row.At(Column::A3)->minusZero);
    EXPECT_TRUE(row.At(Column::B3)->minusZero);
}

TEST(ReadData, ReadsEightColumns)
{
    const auto row = RowRecord(
        "000.5", {"+00001", "-00002", "+00003", "-00004", "+00005", "-00006", "+32767", "-32767"});
    EXPECT_THAT(CountsOf(Read(DataReportOf({row})).rows[0]),
                ElementsAre(1, -2, 3, -4, 5, -6, 32767, -32767));
}

TEST(ReadData, ReadsAWorkFileThatEndsInTheMiddle)
{
    auto file = WorkFileOf(SmallSurveyRows());
    const auto whole = Read(file);
    EXPECT_EQ(whole.kind, FileKind::WorkFile);
    EXPECT_THAT(DepthsOf(whole), ElementsAre(5, 10, 15));
    EXPECT_THAT(whole.anomalies, IsEmpty());

    file.resize(4 * 113 + 40 + 7 + 20); // within a reading of the last row
    const auto cut = Read(file);
    EXPECT_THAT(DepthsOf(cut), ElementsAre(5, 10, 15));
    EXPECT_THAT(CountsOf(cut.rows[0]), ElementsAre(1, -1, std::nullopt, std::nullopt, std::nullopt,
                                                   std::nullopt, std::nullopt, std::nullopt));
    EXPECT_THAT(AnomaliesOf(cut),
                ElementsAre("! 5 452 the file ends within this record",
                            "! 5 452 it holds 2 readings at 0.5 m, not 4 or 8",
                            "5 452 from here on the records are not as long as the manager's"));
}

TEST(ReadData, PassesOverTheShallowestRowAtTheTop)
{
    const auto rows = SmallSurveyRows();
    auto report = DataReportOf(rows);
    report.replace(0, 226, rows[2] + rows[2]);
    const auto contents = Read(report);
    EXPECT_THAT(DepthsOf(contents), ElementsAre(5, 10, 15));
    EXPECT_EQ(contents.rows[0].record, 3U);
    EXPECT_THAT(contents.anomalies, IsEmpty());
}

TEST(ReadData, OfNoRowsIsAnEmptySurvey)
{
    const auto contents = Read(DataReportOf({}));
    EXPECT_EQ(contents.kind, FileKind::DataReport);
    EXPECT_THAT(contents.rows, IsEmpty());
    EXPECT_THAT(contents.anomalies, IsEmpty());
    EXPECT_EQ(Read(WorkFileOf({})).kind, FileKind::WorkFile);
}

struct OtherHands {
    std::string name;
    std::string (*change)(const std::string&);
    std::vector<std::string> anomalies;
};

const std::string kCutOtherwise = "1 0 from here on the records are not as long as the manager's";

class OtherHandsTest : public ::testing::TestWithParam<OtherHands>
{
};

TEST_P(OtherHandsTest, LeaveEveryReading)
{
    const auto original = Read(DataReportOf(SmallSurveyRows()));
    const auto changed = Read(GetParam().change(DataReportOf(SmallSurveyRows())));
    EXPECT_EQ(changed.kind, FileKind::DataReport);
    ASSERT_THAT(changed.rows, SizeIs(original.rows.size()));
    for (std::size_t i = 0; i < changed.rows.size(); ++i) {
        EXPECT_EQ(changed.rows[i].depth, original.rows[i].depth);
        EXPECT_EQ(changed.rows[i].readings, original.rows[i].readings);
    }
    EXPECT_EQ(AnomaliesOf(changed), GetParam().anomalies);
}

INSTANTIATE_TEST_SUITE_P(
    Table, OtherHandsTest,
    ::testing::Values(
        OtherHands{"LineFeeds",
                   [](const std::string& text) { return Replaced(text, "\r ", "\n"); },
                   {kCutOtherwise}},
        OtherHands{"BothLineEnds",
                   [](const std::string& text) { return Replaced(text, "\r ", "\r\n"); },
                   {kCutOtherwise}},
        OtherHands{"BareReturns",
                   [](const std::string& text) { return Replaced(text, "\r ", "\r"); },
                   {"2 113 from here on the records are not as long as the manager's"}},
        OtherHands{
            "NulBytesToBlanks",
            [](const std::string& text) { return Replaced(text, std::string(1, '\0'), " "); },
            {"1 0 there are blanks where the manager writes NUL bytes"}},
        OtherHands{"BlanksStripped",
                   [](const std::string& text) {
                       return Replaced(Replaced(Replaced(text, std::string(1, '\0'), ""), " ", ""),
                                       "\r", "\n");
                   },
                   {kCutOtherwise}},
        OtherHands{"ByteOrderMark",
                   [](const std::string& text) { return "\xEF\xBB\xBF" + text; },
                   {"1 0 a byte order mark precedes the first record"}},
        OtherHands{"CommaInTheDepths",
                   [](const std::string& text) { return Replaced(text, ".", ","); },
                   {}},
        OtherHands{"TitleInCapitals",
                   [](const std::string& text) { return Replaced(text, "Depth", "DEPTH"); },
                   {}}),
    tests::RowName());

TEST(ReadData, CountsOffsetsFromTheStartOfTheFileAlsoAfterAByteOrderMark)
{
    auto report = DataReportOf(SmallSurveyRows());
    report[3 * 113 + 48] = 'x';
    EXPECT_THAT(AnomaliesOf(Read("\xEF\xBB\xBF" + report)),
                ElementsAre("1 0 a byte order mark precedes the first record",
                            "! 4 342 A1 at 1.0 m is not a reading: \"+x0100\""));
}

struct BadReading {
    std::string name;
    std::string text;
};

class BadReadingTest : public ::testing::TestWithParam<BadReading>
{
};

TEST_P(BadReadingTest, IsLeftOutAndReported)
{
    const auto row = RowRecord("000.5", {"+00001", GetParam().text, "+00003", "-00004"});
    const auto contents = Read(DataReportOf({row}));
    ASSERT_THAT(contents.rows, SizeIs(1));
    EXPECT_FALSE(contents.rows[0].At(Column::B1));
    EXPECT_EQ(contents.rows[0].Counts(Column::A3), 3);
    EXPECT_THAT(AnomaliesOf(contents),
                ElementsAre("! 3 226 B1 at 0.5 m is not a reading: \"" + GetParam().text + "\""));
}

INSTANTIATE_TEST_SUITE_P(
    Table, BadReadingTest,
    ::testing::Values(BadReading{"Empty", ""}, BadReading{"TwoSigns", "--0409"},
                      BadReading{"SixDigits", "+139264"}, BadReading{"PastTheWord", "+32768"},
                      BadReading{"CutShort", "+0050"}, BadReading{"CutShortMinus", "-0050"},
                      BadReading{"Letters", "+0a500"}, BadReading{"SignAlone", "+"},
                      BadReading{"Fraction", "+1.5"}),
    tests::RowName());

TEST(ReadData, TakesReadingsThatASpreadsheetHasSaved)
{
    const auto contents = Read("Depth;A1;B1;A3;B3;A2;B2;A4;B4\n0.5;500;-500;0;7\n");
    ASSERT_THAT(contents.rows, SizeIs(1));
    EXPECT_THAT(CountsOf(contents.rows[0]), ElementsAre(500, -500, 0, 7, std::nullopt, std::nullopt,
                                                        std::nullopt, std::nullopt));
}

TEST(ReadData, ReportsADepthThatComesAgainAndKeepsTheFirst)
{
    const auto rows = SmallSurveyRows();
    const auto again = RowRecord("001.0", {"+00007", "+00007", "+00007", "+00007"});
    const auto contents = Read(DataReportOf({rows[0], again, rows[1], rows[2]}));
    EXPECT_THAT(DepthsOf(contents), ElementsAre(5, 10, 15));
    EXPECT_EQ(contents.rows[1].Counts(Column::A1), 100);
    EXPECT_THAT(AnomaliesOf(contents),
                ElementsAre("! 5 452 the depth 1.0 m comes again and is passed over"));
}

TEST(ReadData, ReportsARowOutOfOrderAndSortsIt)
{
    const auto rows = SmallSurveyRows();
    const auto contents = Read(DataReportOf({rows[0], rows[2], rows[1]}));
    EXPECT_THAT(DepthsOf(contents), ElementsAre(5, 10, 15));
    EXPECT_THAT(AnomaliesOf(contents), ElementsAre("! 4 339 the depth 0.5 m is out of order"));
}

TEST(ReadData, ReportsARecordThatIsNoRow)
{
    auto rows = SmallSurveyRows();
    rows[1].replace(40, 5, "o01.0");
    EXPECT_THAT(AnomaliesOf(Read(DataReportOf(rows))),
                ElementsAre("! 4 339 this record is no row: \"o01.0; +00100; -00100; +\""));
}

TEST(ReadData, ReportsAMissingTitle)
{
    auto report = DataReportOf(SmallSurveyRows());
    report.resize(report.size() - 113);
    const auto contents = Read(report);
    EXPECT_EQ(contents.kind, FileKind::DataReport);
    EXPECT_THAT(AnomaliesOf(contents),
                ElementsAre("! 6 565 the title is missing: the file may be cut short"));
}

TEST(ReadData, RecoversAfterBytesThatWerePutIn)
{
    auto report = DataReportOf(SmallSurveyRows());
    report.insert(3 * 113 + 10, "\n!!!");
    const auto contents = Read(report);
    EXPECT_THAT(DepthsOf(contents), ElementsAre(5, 15));
    EXPECT_THAT(contents.anomalies, SizeIs(2));
}

TEST(Read, RefusesWhatIsNoReport)
{
    for (const std::string text : {"", "hello", "12.5;3;4\n", "0.5;1;2;3;4\n", "a;b;c\r\n",
                                   "\r\r\r", "%PDF-1.4", "Client;Site\n", ";;;;;;;;"})
        EXPECT_FALSE(Read(text).refusal.empty()) << text;
    EXPECT_EQ(Read("").refusal, "it is empty");
    EXPECT_EQ(Read(std::string(77 * 30, ' ')).kind, FileKind::None);
    EXPECT_THAT(Read("\xFF\xFE"
                     "D")
                    .refusal,
                ::testing::HasSubstr("two bytes"));
}

TEST(Read, ReportsAHundredAnomaliesAtMost)
{
    std::string text = "Depth;A1;B1;A3;B3;A2;B2;A4;B4\n";
    for (int i = 0; i < 1000; ++i)
        text += "x\n";
    const auto anomalies = Read(text).anomalies;
    EXPECT_THAT(anomalies, SizeIs(kMostAnomalies));
    EXPECT_THAT(anomalies.back().text, ::testing::HasSubstr("902 more"));
}

} // namespace
} // namespace tarvex::survey
