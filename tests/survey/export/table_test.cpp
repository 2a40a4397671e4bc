#include "survey/export/table.h"

#include "survey/downloads.h"
#include "survey/export/json.h"
#include "survey/files/load.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace tarvex::survey
{
namespace
{

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::SizeIs;

Survey Small()
{
    Survey survey;
    survey.files = {"a-num.dat"};
    survey.rows = {{5, {Reading{1, false}, Reading{-2, false}, Reading{0, true}}, 3},
                   {100, {Reading{100, false}, Reading{0, false}, Reading{-32767, false}}, 4}};
    survey.anomalies = {{"a-num.dat", 3, 226, "B3 at 0.5 m is not a reading: \"\"", false}};
    return survey;
}

TEST(TableOf, AlignsTheColumnsAndMarksWhatIsMissing)
{
    EXPECT_EQ(TableOf(Small()),
              "a-num.dat\n"
              "\n"
              "  Depth       A1       B1       A3       B3\n"
              "    0.5   +00001   -00002   -00000        -\n"
              "   10.0   +00100   +00000   -32767        -\n"
              "\n"
              "a-num.dat, record 3, offset 226: B3 at 0.5 m is not a reading: \"\"\n");
}

TEST(TableOf, ShowsTheHeadOfADownloadedSurvey)
{
    const tests::TemporaryFolder folder;
    const auto table = TableOf(Load(tests::Download(folder.Path(), "1:guides=4,north=-090")));
    EXPECT_THAT(table, HasSubstr("Client       COMUNE\nSite         PENDIO 1\nTube no      T1\n"));
    EXPECT_THAT(table, HasSubstr("North        -090\nReadout no   01\nDate         14/04/26\n"));
    EXPECT_THAT(table, HasSubstr("B4\n    0.5 "));
}

TEST(JsonOf, HoldsNumbersAsNumbersAndNullWhereNoneIs)
{
    const auto json = nlohmann::json::parse(JsonOf(Small()));
    EXPECT_EQ(json["rows"][1]["depth"], 10.0);
    EXPECT_EQ(json["rows"][1]["A3"], -32767);
    EXPECT_TRUE(json["rows"][0]["B3"].is_null());
    EXPECT_FALSE(json["rows"][0].contains("A2"));
    EXPECT_TRUE(json["head"].is_null());
    EXPECT_EQ(json["anomalies"][0]["record"], 3);
    EXPECT_EQ(json["anomalies"][0]["offset"], 226);
}

TEST(JsonOf, HoldsTheHeadByName)
{
    const tests::TemporaryFolder folder;
    const auto json = nlohmann::json::parse(JsonOf(Load(tests::Download(folder.Path(), "1"))));
    EXPECT_EQ(json["head"]["client"], "COMUNE");
    EXPECT_EQ(json["head"]["readout"], "01");
    EXPECT_THAT(json["rows"], SizeIs(40));
    EXPECT_THAT(json["files"], SizeIs(2));
    EXPECT_THAT(json["files"][0].get<std::string>(), EndsWith("-dat.dat"));
}

} // namespace
} // namespace tarvex::survey
