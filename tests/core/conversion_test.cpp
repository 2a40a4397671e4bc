#include "core/conversion.h"

#include "core/failure.h"
#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

struct NumberRow {
    std::string name;
    std::string text;
    double number;
};

class NumericValueTest : public ::testing::TestWithParam<NumberRow>
{
};

TEST_P(NumericValueTest, ReadsTheNumberAtTheStart)
{
    EXPECT_EQ(NumericValue(GetParam().text), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Table, NumericValueTest,
    ::testing::Values(NumberRow{"Empty", "", 0}, NumberRow{"Blanks", "   ", 0},
                      NumberRow{"Digits", "30", 30}, NumberRow{"LeadingZeros", "007", 7},
                      NumberRow{"LeadingBlanksAndTabs", " \t 12", 12},
                      NumberRow{"LineEndIsNoBlank", "\n12", 0}, NumberRow{"Plus", "+5", 5},
                      NumberRow{"Minus", "-5", -5}, NumberRow{"TwoSigns", "--5", 0},
                      NumberRow{"SignThenBlank", "- 5", 0}, NumberRow{"SignAlone", "-", 0},
                      NumberRow{"MinusZero", "-0", 0}, NumberRow{"TrailingPoint", "5.", 5},
                      NumberRow{"LeadingPoint", ".5", 0.5}, NumberRow{"SignAndPoint", "-.5", -0.5},
                      NumberRow{"PointAlone", ".", 0}, NumberRow{"TwoPoints", "1.2.3", 1.2},
                      NumberRow{"Decimals", "015.5", 15.5}, NumberRow{"LetterFirst", "a5", 0},
                      NumberRow{"LetterBehind", "5a", 5}, NumberRow{"BlankBetween", "1 2", 1},
                      NumberRow{"Comma", "1,5", 1}, NumberRow{"Exponent", "1e3", 1},
                      NumberRow{"CapitalExponent", "1E3", 1}, NumberRow{"OtherExponent", "1d3", 1},
                      NumberRow{"Hexadecimal", "0x1F", 0}, NumberRow{"OtherHexadecimal", "&H1F", 0},
                      NumberRow{"Infinity", "inf", 0}, NumberRow{"NotANumber", "nan", 0},
                      NumberRow{"NulBehind",
                                std::string("7\0"
                                            "8",
                                            3),
                                7},
                      NumberRow{"HighByteBehind", "7\xB2", 7},
                      NumberRow{"LongFraction", "0.1000", 0.1}),
    RowName());

struct PatternRow {
    std::string name;
    std::string (*pattern)(double);
    double value;
    std::string text;
};

class PatternTest : public ::testing::TestWithParam<PatternRow>
{
};

TEST_P(PatternTest, WritesTheNumber)
{
    EXPECT_EQ(GetParam().pattern(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(TwoDigits, PatternTest,
                         ::testing::Values(PatternRow{"Zero", TwoDigits, 0, "00"},
                                           PatternRow{"One", TwoDigits, 1, "01"},
                                           PatternRow{"Thirty", TwoDigits, 30, "30"},
                                           PatternRow{"Wider", TwoDigits, 100, "100"},
                                           PatternRow{"Negative", TwoDigits, -1, "-01"},
                                           PatternRow{"HalfUp", TwoDigits, 0.5, "01"},
                                           PatternRow{"HalfAwayFromEven", TwoDigits, 2.5, "03"},
                                           PatternRow{"BelowHalf", TwoDigits, 0.49, "00"},
                                           PatternRow{"NegativeHalf", TwoDigits, -0.5, "-01"},
                                           PatternRow{"NegativeToZero", TwoDigits, -0.4, "-00"},
                                           PatternRow{"MinusZero", TwoDigits, -0.0, "00"}),
                         RowName());

INSTANTIATE_TEST_SUITE_P(
    FiveDigits, PatternTest,
    ::testing::Values(PatternRow{"Zero", FiveDigits, 0, "00000"},
                      PatternRow{"Padded", FiveDigits, 500, "00500"},
                      PatternRow{"Full", FiveDigits, 32767, "32767"},
                      PatternRow{"Wider", FiveDigits, 159744, "159744"},
                      PatternRow{"Negative", FiveDigits, -4096, "-04096"},
                      PatternRow{"Huge", FiveDigits, 1e22, "10000000000000000000000"},
                      PatternRow{"NegativeWider", FiveDigits, -139264, "-139264"},
                      PatternRow{"NegativeToZero", FiveDigits, -0.4, "-00000"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    OneDecimal, PatternTest,
    ::testing::Values(PatternRow{"Zero", OneDecimal, 0, "000.0"},
                      PatternRow{"Padded", OneDecimal, 1.5, "001.5"},
                      PatternRow{"Full", OneDecimal, 120, "120.0"},
                      PatternRow{"Wider", OneDecimal, 1000.5, "1000.5"},
                      PatternRow{"Huge", OneDecimal, 1e17, "100000000000000000.0"},
                      PatternRow{"HalfAwayFromEven", OneDecimal, 0.25, "000.3"},
                      PatternRow{"CarriesOver", OneDecimal, 99.96, "100.0"},
                      PatternRow{"Remainder", OneDecimal, 10.3 - 10, "000.3"},
                      PatternRow{"Negative", OneDecimal, -0.7, "-000.7"},
                      PatternRow{"NegativeToZero", OneDecimal, -0.04, "-000.0"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(PlainNumber, PatternTest,
                         ::testing::Values(PatternRow{"Zero", PlainNumber, 0, "0"},
                                           PatternRow{"Whole", PlainNumber, 30, "30"},
                                           PatternRow{"NoPadding", PlainNumber, 0.5, "0.5"},
                                           PatternRow{"Negative", PlainNumber, -1.25, "-1.25"},
                                           PatternRow{"NegativeZero", PlainNumber, -0.0, "0"},
                                           PatternRow{"ShortestDecimal", PlainNumber, 0.1, "0.1"},
                                           PatternRow{"LargeWithoutExponent", PlainNumber, 1e21,
                                                      "1000000000000000000000"},
                                           PatternRow{"SmallWithoutExponent", PlainNumber, 1e-7,
                                                      "0.0000001"}),
                         RowName());

TEST(HexPair, ReadsEveryByteInCapitalsAndSmallLetters)
{
    const std::string capitals = "0123456789ABCDEF";
    const std::string smalls = "0123456789abcdef";
    for (std::size_t code = 0; code < 256; ++code) {
        const char byte = static_cast<char>(code);
        EXPECT_EQ(HexPair(std::string{capitals[code / 16], capitals[code % 16]}), byte);
        EXPECT_EQ(HexPair(std::string{smalls[code / 16], smalls[code % 16]}), byte);
    }
}

TEST(HexPair, LooksAtTwoCharactersOnly)
{
    EXPECT_EQ(HexPair("41 zz"), 'A');
}

struct RefusedPair {
    std::string name;
    std::string digits;
};

class RefusedHexPairTest : public ::testing::TestWithParam<RefusedPair>
{
};

TEST_P(RefusedHexPairTest, Fails)
{
    EXPECT_THROW(HexPair(GetParam().digits), RunTimeFailure);
}

INSTANTIATE_TEST_SUITE_P(
    Table, RefusedHexPairTest,
    ::testing::Values(RefusedPair{"Empty", ""}, RefusedPair{"OneDigit", "4"},
                      RefusedPair{"LeadingBlank", " 4"}, RefusedPair{"TrailingBlank", "4 "},
                      RefusedPair{"Sign", "+4"}, RefusedPair{"Prefix", "0x41"},
                      RefusedPair{"OtherPrefix", "&H41"}, RefusedPair{"LetterBeyond", "4G"},
                      RefusedPair{"SmallLetterBeyond", "g4"}, RefusedPair{"Colon", "4:"},
                      RefusedPair{"Slash", "/4"}, RefusedPair{"At", "@1"},
                      RefusedPair{"Backtick", "1`"}, RefusedPair{"HighByte", "4\xC1"},
                      RefusedPair{"Nul", std::string("4\0", 2)}),
    RowName());

TEST(TwoHexDigits, WritesCapitalsWithALeadingZero)
{
    EXPECT_EQ(TwoHexDigits(0), "00");
    EXPECT_EQ(TwoHexDigits(9), "09");
    EXPECT_EQ(TwoHexDigits(10), "0A");
    EXPECT_EQ(TwoHexDigits(16), "10");
    EXPECT_EQ(TwoHexDigits(29), "1D");
    EXPECT_EQ(TwoHexDigits(255), "FF");
}

TEST(Middle, CutsFromAPositionCountedFromOneAndNeverPastTheEnd)
{
    EXPECT_EQ(Middle("12345", 1, 2), "12");
    EXPECT_EQ(Middle("12345", 4, 2), "45");
    EXPECT_EQ(Middle("12345", 5, 2), "5");
    EXPECT_EQ(Middle("12345", 6, 2), "");
    EXPECT_EQ(Middle("12345", 7, 2), "");
    EXPECT_EQ(Middle("", 1, 3), "");
}

TEST(Right, CutsFromTheEndOrGivesAll)
{
    EXPECT_EQ(Right("00012", 3), "012");
    EXPECT_EQ(Right("12", 3), "12");
    EXPECT_EQ(Right("", 3), "");
}

} // namespace
} // namespace tarvex::tests
