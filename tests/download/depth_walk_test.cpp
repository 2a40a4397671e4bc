#include "download_test_fixture.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct DepthRow {
    std::string name;
    std::string depth;
    std::string step;
    int rows;
    std::string first;
    std::string last;
    std::string lastAddress; ///< of the page of the last row
    std::string nextPage;    ///< bank and page that the walk stops before
};

class DepthWalkTest : public DownloadTest, public ::testing::WithParamInterface<DepthRow>
{
};

TEST_P(DepthWalkTest, ReadsOnePageAStepFromTheBottomUpwards)
{
    SetSurvey(unit, 10, GetParam().depth, GetParam().step, "2");
    Download("11");

    const std::vector<std::string> depths = DepthsOfRows();
    ASSERT_EQ(depths.size(), static_cast<std::size_t>(GetParam().rows));
    EXPECT_EQ(depths.front(), GetParam().first);
    EXPECT_EQ(depths.back(), GetParam().last);
    EXPECT_EQ(panel.readAddress.Text(), "0A" + GetParam().lastAddress);
    EXPECT_EQ(state.readAddrBank + state.readAddrPage, GetParam().nextPage);
    EXPECT_EQ(port.sent.size(), 2 * (10 + depths.size()));

    const std::string work = Report("datiram.dat");
    std::string number = std::to_string(GetParam().rows - 1);
    number.insert(0, 5 - number.size(), '0');
    EXPECT_EQ(work.substr(work.size() - 113 + 47, 8), "+" + number + "; ");
    EXPECT_EQ(Report(kSmallSurvey + "num.dat").size(), (depths.size() + 4) * 113);
    EXPECT_EQ(finishedHandlers, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Table, DepthWalkTest,
    ::testing::Values(
        DepthRow{"HalfAMetre", "0005", "0", 1, "000.5", "000.5", "100", "110"},
        DepthRow{"HalfAMetreOfAWholeStep", "0005", "1", 1, "000.5", "000.5", "100", "110"},
        DepthRow{"OneMetreOfAWholeStep", "0010", "1", 1, "001.0", "001.0", "100", "110"},
        DepthRow{"AWholeBank", "0080", "0", 16, "008.0", "000.5", "1F0", "200"},
        DepthRow{"RemainderAtHalfSteps", "0103", "0", 20, "010.3", "000.8", "230", "240"},
        DepthRow{"RemainderAtWholeSteps", "0103", "1", 11, "010.3", "000.3", "1A0", "1B0"},
        DepthRow{"SmallestRemainder", "0101", "1", 11, "010.1", "000.1", "1A0", "1B0"},
        DepthRow{"HundredMetres", "1000", "0", 200, "100.0", "000.5", "D70", "D80"},
        DepthRow{"TwoHundredMetresOfAWholeStep", "2000", "1", 200, "200.0", "001.0", "D70", "D80"},
        DepthRow{"LastPage", "1200", "0", 240, "120.0", "000.5", "FF0", "FF0"},
        DepthRow{"MoreThanThePages", "1500", "0", 240, "150.0", "030.5", "FF0", "FF0"},
        DepthRow{"Deepest", "9999", "1", 240, "999.9", "760.9", "FF0", "FF0"},
        DepthRow{"OtherStepsAreWhole", "0030", "5", 3, "003.0", "001.0", "120", "130"}),
    RowName());

/// Depths that make no row: the run ends with its two title records.
class NoRowTest : public DownloadTest, public ::testing::WithParamInterface<DepthRow>
{
};

TEST_P(NoRowTest, WritesTheReportsWithoutARow)
{
    SetSurvey(unit, 0, GetParam().depth, GetParam().step, "2");
    Download();
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf({}));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf({}));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat").size(), 4U * 113);
    EXPECT_EQ(port.sent.size(), 20U);
    EXPECT_EQ(panel.readAddress.Text(), "00090");
    EXPECT_EQ(state.readAddrBank + state.readAddrPage, "100");
    EXPECT_LINK_AT_REST();
}

INSTANTIATE_TEST_SUITE_P(
    Table, NoRowTest,
    ::testing::Values(DepthRow{"Zero", "0000", "0", 0, "", "", "", ""},
                      DepthRow{"ZeroOfAWholeStep", "0000", "1", 0, "", "", "", ""},
                      DepthRow{"BelowHalfAMetre", "0004", "0", 0, "", "", "", ""},
                      DepthRow{"Letters", "abcd", "0", 0, "", "", "", ""},
                      DepthRow{"Negative", "-010", "1", 0, "", "", "", ""},
                      DepthRow{"Nul", std::string(4, '\0'), "0", 0, "", "", "", ""}),
    RowName());

TEST_F(DownloadTest, ReadsTheDepthAsFarAsItIsANumber)
{
    SetSurvey(unit, 0, "02x5", "1", "2");
    Download();
    EXPECT_THAT(DepthsOfRows(), ElementsAre("002.0", "001.0"));
}

TEST_F(DownloadTest, AnEmptyStepTestsAsZeroAndGoesUpInWholeMetres)
{
    SetSurvey(unit, 0, "0023", "0", "2");
    unit.answerWake = [](int wake) { return wake == 5 ? "?" : "!"; }; // the page of the step
    Download();
    EXPECT_THAT(DepthsOfRows(), ElementsAre("002.3", "001.3"));
    EXPECT_EQ(Report(kSmallSurvey + "dat.dat").substr(8 * 42, 42), Padded("Step:;", 40) + "\r ");
}

TEST_F(DownloadTest, ASkippedDataPageLeavesNoRowAndTheOthersTheirDepth)
{
    SetSmallSurvey(unit, 0);
    unit.answerWake = [](int wake) { return wake == 12 ? "!!" : "!"; };
    Download();
    const std::vector<std::string> rows = {SmallSurveyRows()[0], SmallSurveyRows()[2]};
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(rows));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf(rows));
    EXPECT_EQ(unit.reads, 12);
}

TEST_F(DownloadTest, GarbledDigitsAreInTheReportAsTheyDecode)
{
    SetSmallSurvey(unit, 0);
    unit.answerRead = [](int read, const std::string& reply) {
        if (read != 11) return reply;
        return "a0 00 G0 00 zz zz " + std::string(1, '\0') + "0 00 " + reply.substr(24);
    };
    Download();
    std::vector<std::string> rows = SmallSurveyRows();
    // The last of them runs past its column and loses its ";".
    rows[0] = RowRecord("001.5", {"+139264", "-65536", "-292723", "--196608"});
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(rows));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf(rows));
}

TEST_F(DownloadTest, EachRowIsInItsFileBeforeTheNextPageIsAskedFor)
{
    SetSmallSurvey(unit, 0);
    std::vector<std::size_t> records;
    unit.onWake = [&](int wake) {
        if (wake > 10) records.push_back(Report("datiram.dat").size() / 113);
    };
    Download();
    EXPECT_THAT(records, ElementsAre(2U, 3U, 4U));
}

} // namespace
} // namespace tarvex::tests
