#include "unit/line_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tarvex::unit
{
namespace
{

struct Written {
    std::string name;
    LogLine line;
    std::string text;
};

class LineOfALog : public testing::TestWithParam<Written>
{
};

TEST_P(LineOfALog, IsWrittenAndReadBack)
{
    EXPECT_EQ(TextOf(GetParam().line), GetParam().text);
    EXPECT_EQ(ParseLogLine(GetParam().text), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(
    Table, LineOfALog,
    testing::Values(
        Written{"Wake", {Time{1'002'003}, Speaker::Manager, "}"}, "     1.002003  manager  }"},
        Written{"Answer", {Time{999'999}, Speaker::Unit, "!"}, "     0.999999  unit     !"},
        Written{
            "Frame", {Time{0}, Speaker::Manager, "a00000\r"}, "     0.000000  manager  a00000\\r"},
        Written{
            "LongRun", {Time{1'234'567'000'001}, Speaker::Unit, "?"}, "1234567.000001  unit     ?"},
        Written{
            "HangUp", {Time{5}, Speaker::Unit, "", "hang-up"}, "     0.000005  unit     (hang-up)"},
        Written{"BytesAndNote",
                {Time{5}, Speaker::Manager, "xyz", "passed over"},
                "     0.000005  manager  xyz  (passed over)"},
        Written{"Parenthesis",
                {Time{5}, Speaker::Manager, "(hang-up)"},
                "     0.000005  manager  \\x28hang-up)"},
        Written{"BlanksAtTheEnds",
                {Time{5}, Speaker::Unit, "  a  "},
                "     0.000005  unit     \\x20 a \\x20"},
        Written{"OneBlank", {Time{5}, Speaker::Unit, " "}, "     0.000005  unit     \\x20"},
        Written{"BlanksBeforeANote",
                {Time{5}, Speaker::Manager, "a  ", "passed over"},
                "     0.000005  manager  a \\x20  (passed over)"},
        Written{"AnyByte",
                {Time{5}, Speaker::Unit, std::string("\0\n\\\xFF", 4)},
                "     0.000005  unit     \\x00\\n\\\\\\xFF"}),
    [](const auto& written) { return written.param.name; });

TEST(Log, LeavesOutEmptyLinesAndRemarks)
{
    std::istringstream log("# recorded in the field\n\n     0.000001  manager  }\n#\n"
                           "     0.000002  unit     !\n");
    EXPECT_THAT(ReadLog(log), testing::ElementsAre(LogLine{Time{1}, Speaker::Manager, "}"},
                                                   LogLine{Time{2}, Speaker::Unit, "!"}));
}

TEST(Log, HasTheFormThatThePageShows)
{
    std::ifstream page(TARVEX_UNIT_PAGE);
    std::string text;
    while (std::getline(page, text) && text != "```tap-log") {
    }
    int lines = 0;
    for (; std::getline(page, text) && text != "```"; ++lines)
        EXPECT_EQ(TextOf(ParseLogLine(text)), text);
    EXPECT_EQ(lines, 7);
}

TEST(Log, NamesTheLineThatIsNone)
{
    for (const std::string bad :
         {"hello", "1.5  manager  }", "     0.000001 manager  }", "     0.000001  nobody   }",
          "     0.000001  manager  ", "     0.000001  manager  \\q", "-1.000000  manager  }",
          "     0.000001  unit     (hang-up", "     0.-00001  unit     !",
          "1000000000.000000  unit     !", "9223372036855.000000  manager  }"}) {
        std::istringstream log("     0.000001  manager  }\n" + bad + "\n");
        try {
            ReadLog(log);
            ADD_FAILURE() << bad;
        } catch (const std::invalid_argument& error) {
            EXPECT_THAT(error.what(), testing::StartsWith("2: ")) << bad;
        }
    }
}

} // namespace
} // namespace tarvex::unit
