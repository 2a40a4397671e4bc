#include "survey/checks/check.h"
#include "survey/comparison/compare.h"
#include "survey/files/load.h"

#include "survey/downloads.h"
#include "survey/known_surveys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>

namespace tarvex::survey
{
namespace
{

namespace fs = std::filesystem;
using Expected = nlohmann::json;

constexpr double kNear = 1e-9;

const Expected& AllExpected()
{
    static const Expected all =
        Expected::parse(std::ifstream(TARVEX_SURVEY_TESTS "/expected.json"));
    return all;
}

fs::path ReportFolder()
{
    return TARVEX_SURVEY_TESTS "/known_reports";
}

TEST(KnownReports, AreWhatTheManagerMakesFromTheUnit)
{
    const tests::TemporaryFolder folder;
    for (const auto& known : tests::kKnownSurveys)
        tests::Download(folder.Path(), std::string(known.fill), std::string(known.fault));
    fs::remove(folder / "datiram.dat");
    ASSERT_EQ(tests::NamesIn(folder.Path()), tests::NamesIn(ReportFolder()));
    for (const auto& name : tests::NamesIn(folder.Path()))
        EXPECT_EQ(tests::FileBytes(folder / name), tests::FileBytes(ReportFolder() / name)) << name;
}

void ExpectFigures(const SumFigures& figures, const Expected& expected)
{
    EXPECT_EQ(figures.pair.Sum(), expected["pair"]);
    EXPECT_EQ(figures.summary.count, expected["count"]);
    EXPECT_NEAR(figures.summary.mean, expected["mean"], kNear);
    EXPECT_NEAR(figures.summary.deviation, expected["deviation"], kNear);
    EXPECT_EQ(figures.summary.median, expected["median"]);
    EXPECT_EQ(figures.summary.mad, expected["mad"]);
    EXPECT_EQ(std::abs(figures.departure), expected["departure"]);
    EXPECT_EQ(figures.drift, expected["drift"]);
    EXPECT_EQ(figures.outliers, expected["outliers"].get<std::vector<int>>());
}

TEST(Figures, OfAllKnownSurveysAreThoseCalculatedIndependently)
{
    ASSERT_EQ(AllExpected()["surveys"].size(), tests::kKnownSurveys.size());
    for (const auto& [name, expected] : AllExpected()["surveys"].items()) {
        SCOPED_TRACE(name);
        const auto survey = Load(ReportFolder() / name);
        const auto verdict = Check(survey);
        ASSERT_EQ(verdict.sums.size(), expected["sums"].size());
        for (std::size_t i = 0; i < verdict.sums.size(); ++i)
            ExpectFigures(verdict.sums[i], expected["sums"][i]);
    }
}

TEST(Figures, OfTheHalfDifferencesAreThoseCalculatedIndependently)
{
    for (const auto& [name, expected] : AllExpected()["surveys"].items()) {
        if (name.starts_with("UNREAD")) continue; // its empty depth is no half difference
        SCOPED_TRACE(name);
        const auto survey = Load(ReportFolder() / name);
        for (const auto& pair : PairsOf(survey))
            EXPECT_EQ(ValuesOf(HalfDifferencesOf(survey, pair)),
                      expected["halves"][pair.Difference()].get<std::vector<double>>());
    }
}

fs::path Moves(const std::string& number)
{
    return ReportFolder() / ("MOVES   -PENDIO 1-T10 -" + number + "-dat.dat");
}

TEST(Figures, OfAComparisonAreThoseCalculatedIndependently)
{
    const auto base = Load(Moves("00"));
    for (const auto& [number, expected] : AllExpected()["compared"].items()) {
        const auto now = Load(Moves(number));
        for (const auto from : {SumFrom::Bottom, SumFrom::Top}) {
            const auto comparison = Compare(base, now, from);
            ASSERT_EQ(comparison.refusal, "");
            ASSERT_EQ(comparison.pairs.size(), 4U);
            for (const auto& compared : comparison.pairs) {
                SCOPED_TRACE(number + " " + compared.pair.Difference());
                const auto& figures = expected[compared.pair.Difference()];
                EXPECT_EQ(ValuesOf(compared.differences),
                          figures["differences"].get<std::vector<double>>());
                EXPECT_EQ(ValuesOf(compared.cumulative),
                          figures[from == SumFrom::Bottom ? "fromBottom" : "fromTop"]
                              .get<std::vector<double>>());
                EXPECT_EQ(compared.SumsChange(), figures["sumsChange"]);
            }
        }
    }
}

TEST(Figures, OfTenReadoutsFollowTheShearOfTheTube)
{
    const tests::TemporaryFolder folder;
    const auto readout = [&](int number) {
        return Load(tests::Download(folder.Path(), "3:depth=20,moved=" + std::to_string(number) +
                                                       ",nlet=" + std::to_string(10 + number)));
    };
    const auto base = readout(0);
    for (int number = 1; number <= 10; ++number) {
        const auto comparison = Compare(base, readout(number), SumFrom::Bottom);
        for (const auto& point : comparison.pairs[0].differences) {
            // 12 counts a readout within two metres of 8.0 m; the last digits are never at rest.
            const int shear = std::abs(point.depth - 80) <= 20 ? 12 * number : 0;
            EXPECT_NEAR(point.value, shear, 4) << number << " at " << point.depth;
        }
        // Nine depths of it above the shear; each adds its unrest.
        EXPECT_NEAR(comparison.pairs[0].cumulative.front().value, 9 * 12 * number, 30) << number;
        EXPECT_NEAR(comparison.pairs[1].cumulative.front().value, 9 * 4 * number, 30) << number;
    }
}

} // namespace
} // namespace tarvex::survey
