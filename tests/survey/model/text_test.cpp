#include "survey/model/number_text.h"
#include "survey/model/readable.h"
#include "survey/model/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::survey
{
namespace
{

TEST(Readable, TurnsWindows1252IntoUtf8)
{
    EXPECT_EQ(Readable("A\xE0\x80\xFF"), "A\xC3\xA0\xE2\x82\xAC\xC3\xBF");
}

TEST(Readable, LetsNothingMoveTheCursorOfATerminal)
{
    EXPECT_EQ(Readable("a\x1B[2J\n\x9D\x7F"), "a\uFFFD[2J\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(Readable("a\x1B\xC2\x9B"
                       "b",
                       Encoding::Utf8),
              "a\uFFFD\uFFFD\uFFFDb");
}

TEST(Readable, KeepsWellFormedUtf8AndReplacesTheRest)
{
    EXPECT_EQ(Readable("\xC3\xA0\xE2\x82\xAC\xF0\x9F\x98\x80", Encoding::Utf8),
              "\xC3\xA0\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(Readable("\xC3", Encoding::Utf8), "\uFFFD");
    EXPECT_EQ(Readable("\xC0\xAF", Encoding::Utf8), "\uFFFD\uFFFD");
    EXPECT_EQ(Readable("\xED\xA0\x80", Encoding::Utf8), "\uFFFD\uFFFD\uFFFD");
}

TEST(TenthsOf, TakesOneDecimalByPointOrComma)
{
    EXPECT_EQ(TenthsOf("012.5"), 125);
    EXPECT_EQ(TenthsOf("000,5"), 5);
    EXPECT_EQ(TenthsOf("999.9"), 9999);
}

TEST(TenthsOf, RefusesEverythingElse)
{
    for (const auto* text : {"", ".", "1", "1.", ".5", "1.55", "-1.0", "+1.0", "1.5 ", " 1.5",
                             "1000.0", "1e1.0", "1..5", "1.x", "99999999999.0"})
        EXPECT_EQ(TenthsOf(text), std::nullopt) << text;
}

TEST(Trimmed, TakesBlanksTabsAndNulBytesOffBothEnds)
{
    EXPECT_EQ(Trimmed(std::string_view("\0 \ta b\0\0 ", 9)), "a b");
    EXPECT_EQ(Trimmed(std::string_view("\0\0", 2)), "");
}

} // namespace
} // namespace tarvex::survey
