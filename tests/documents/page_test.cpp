#include "documents/page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

using Lines = std::vector<std::string>;

const Lines kReal = {"one", "two", "one", "three"};

TEST(Difference, IsNoneBetweenTheSameLines)
{
    EXPECT_EQ(Difference(kReal, kReal), "");
}

TEST(Difference, LetsAGapStandForAnyLines)
{
    EXPECT_EQ(Difference({"one", "...", "one", "three"}, kReal), "");
    EXPECT_EQ(Difference({"one", "...", "three"}, kReal), "");
    EXPECT_EQ(Difference({"...", "three"}, kReal), "");
    EXPECT_EQ(Difference({"one", "..."}, kReal), "");
    EXPECT_EQ(Difference({"one", "...", "two", "one", "...", "three"}, kReal), "");
}

TEST(Difference, SeesALineThatIsMissingOrTooMuchOrOther)
{
    EXPECT_NE(Difference({"one", "two", "one"}, kReal), "");
    EXPECT_NE(Difference({"one", "two", "one", "three", "four"}, kReal), "");
    EXPECT_NE(Difference({"one", "two", "two", "three"}, kReal), "");
    EXPECT_NE(Difference({"two", "...", "three"}, kReal), "");
    EXPECT_NE(Difference({"one", "...", "two"}, kReal), "");
    EXPECT_NE(Difference({"one", "...", "four", "...", "three"}, kReal), "");
    EXPECT_NE(Difference({"...", "one", "two", "one", "two", "one", "three"}, kReal), "");
    EXPECT_NE(Difference({}, kReal), "");
}

TEST(Dump, ShowsOffsetBytesAndCharacters)
{
    EXPECT_EQ(Dump(std::string("ROSSI\0\r (16...)x", 16) + "y"),
              (Lines{"0000  52 4F 53 53 49 00 0D 20 28 31 36 2E 2E 2E 29 78 |ROSSI.. (16...)x|",
                     "0010  79                                              |y|"}));
}

TEST(PageOfDocs, RefusesWhatIsNotThere)
{
    EXPECT_THROW(Page("nothing.md"), std::runtime_error);
    EXPECT_THROW((void)Page("protocol.md").Table("Nothing"), std::runtime_error);
    EXPECT_THROW((void)Page("protocol.md").Example("nothing"), std::runtime_error);
    EXPECT_THROW((void)Number("8 bytes"), std::runtime_error);
}

} // namespace
} // namespace tarvex::tests
