#include "database/survey_test.h"

#include <limits>

namespace tarvex::tests
{
namespace
{

TEST(Value, NullGoesThroughJoinsPartsAndCapitals)
{
    EXPECT_TRUE(Value().IsNull());
    EXPECT_EQ(Join(Value(), "x"), Value());
    EXPECT_EQ(Join("x", Value()), Value());
    EXPECT_EQ(Left(Value(), 3), Value());
    EXPECT_EQ(Middle(Value(), 2, 3), Value());
    EXPECT_EQ(Capitals(Value()), Value());
    EXPECT_EQ(Length(Value()), Value());
}

TEST(Value, TextIsJoinedCutAndMeasured)
{
    EXPECT_EQ(Join("ab", "cd"), "abcd");
    EXPECT_EQ(Join(5.0, "cd"), "5cd");
    EXPECT_EQ(Left("abcd", 2), "ab");
    EXPECT_EQ(Left("a", 2), "a");
    EXPECT_EQ(Middle(Value("abcdef"), 3, 2), "cd");
    EXPECT_EQ(Middle(Value("abc"), 3, 9), "c");
    EXPECT_EQ(Middle(Value("abc"), 4, 1), "");
    EXPECT_EQ(Capitals("a\xE0z"), "A\xC0Z");
    EXPECT_EQ(Length("abc"), 3.0);
    EXPECT_EQ(Length(""), 0.0);
    EXPECT_EQ(Length(12.0), 2.0);
}

TEST(Value, NullHasNoTextAndNoNumber)
{
    EXPECT_THROW(TextOf(Value()), RunTimeFailure);
    EXPECT_THROW(NumericValue(Value()), RunTimeFailure);
}

TEST(Value, NumbersAndTextsTurnIntoEachOther)
{
    EXPECT_EQ(TextOf(2.5), "2.5");
    EXPECT_EQ(TextOf("2.5"), "2.5");
    EXPECT_EQ(NumericValue(Value("12x")), 12);
    EXPECT_EQ(NumericValue(Value("")), 0);
    EXPECT_EQ(NumericValue(Value(7.5)), 7.5);
}

TEST(Value, ComparisonsWithNullAreUnknown)
{
    EXPECT_EQ(Equals(Value(), 0), Truth::Unknown);
    EXPECT_EQ(Equals(Value(), ""), Truth::Unknown);
    EXPECT_EQ(Less(Value(), 4), Truth::Unknown);
    EXPECT_EQ(Greater(Value(), 4), Truth::Unknown);
    EXPECT_EQ(Not(Truth::Unknown), Truth::Unknown);
}

TEST(Value, OrIsTrueWithAnUnknown)
{
    EXPECT_EQ(Or(Truth::True, Truth::Unknown), Truth::True);
    EXPECT_EQ(Or(Truth::Unknown, Truth::True), Truth::True);
    EXPECT_EQ(Or(Truth::Unknown, Truth::False), Truth::Unknown);
    EXPECT_EQ(Or(Truth::False, Truth::Unknown), Truth::Unknown);
    EXPECT_EQ(Or(Truth::False, Truth::False), Truth::False);
    EXPECT_EQ(Not(Truth::True), Truth::False);
    EXPECT_EQ(Not(Truth::False), Truth::True);
}

TEST(Value, ATextEqualsANumberWhenItIsOneThroughout)
{
    for (const auto* const one : {"1", " 1 ", "01", "1.0", "+1", "1."})
        EXPECT_EQ(Equals(one, 1), Truth::True) << one;
    for (const auto* const none : {"", " ", "1x", "x", "1 1", ".", "+", "1.0.0", "--1", "1e0"}) {
        EXPECT_EQ(Equals(none, 1), Truth::False) << none;
        EXPECT_EQ(Equals(none, 0), Truth::False) << none;
    }
    EXPECT_EQ(Equals(1.0, 1), Truth::True);
    EXPECT_EQ(Equals("-2.5", -2.5), Truth::True);
}

TEST(Value, ComparesBySize)
{
    EXPECT_EQ(Less(3.0, 4), Truth::True);
    EXPECT_EQ(Less(4.0, 4), Truth::False);
    EXPECT_EQ(Less("3", 4), Truth::True);
    EXPECT_EQ(Less("x", 4), Truth::False);
    EXPECT_EQ(Greater(26.0, 25), Truth::True);
    EXPECT_EQ(Greater(25.0, 25), Truth::False);
    EXPECT_EQ(Greater("x", 25), Truth::False);
}

TEST(Value, TextEqualityIsByteByByte)
{
    using namespace std::string_literals;
    EXPECT_EQ(Equals("a\0b"s, "a\0b"s), Truth::True);
    EXPECT_EQ(Equals("a\0b"s, "a\0c"s), Truth::False);
    EXPECT_EQ(Equals("a", "A"), Truth::False);
    EXPECT_EQ(Equals("a", "a "), Truth::False);
    EXPECT_EQ(Equals(0.0, "0"), Truth::True);
    EXPECT_EQ(Equals(0.0, ""), Truth::False);
}

TEST(Value, ANumberIsNoText)
{
    EXPECT_FALSE(Value("0") == Value(0.0));
    EXPECT_FALSE(Value("") == Value());
    EXPECT_TRUE(Value() == Value());
}

} // namespace
} // namespace tarvex::tests
