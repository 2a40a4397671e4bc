#include "core/code_page.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using code_page::Capital;
using code_page::Capitals;
using code_page::FromUnicode;
using code_page::FromUtf16;
using code_page::FromUtf8;
using code_page::Holds;
using code_page::ToUnicode;
using code_page::ToUtf16;
using code_page::ToUtf8;

std::string AllBytes()
{
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    return bytes;
}

TEST(CodePage, EveryByteSurvivesTheWayToUnicodeAndBack)
{
    for (const char byte : AllBytes()) {
        EXPECT_TRUE(Holds(ToUnicode(byte)));
        EXPECT_EQ(FromUnicode(ToUnicode(byte)), byte) << +byte;
    }
}

TEST(CodePage, EveryByteHasACharacterOfItsOwn)
{
    std::set<char32_t> characters;
    for (const char byte : AllBytes())
        characters.insert(ToUnicode(byte));
    EXPECT_EQ(characters.size(), 256U);
}

TEST(CodePage, EveryByteSurvivesTheWayThroughUtf8)
{
    EXPECT_EQ(FromUtf8(ToUtf8(AllBytes())), AllBytes());
}

TEST(CodePage, UnassignedCodesAreTheControlCharactersOfTheSameNumber)
{
    for (const int code : {0x81, 0x8D, 0x8F, 0x90, 0x9D}) {
        EXPECT_EQ(ToUnicode(static_cast<char>(code)), static_cast<char32_t>(code));
        EXPECT_EQ(FromUnicode(static_cast<char32_t>(code)), static_cast<char>(code));
    }
}

TEST(CodePage, SpecialCharactersLieBetween80And9F)
{
    EXPECT_EQ(ToUnicode('\x80'), U'€');
    EXPECT_EQ(ToUnicode('\x85'), U'…');
    EXPECT_EQ(ToUnicode('\x92'), U'’');
    EXPECT_EQ(ToUnicode('\x9F'), U'Ÿ');
    EXPECT_EQ(ToUnicode('\xE0'), U'à');
    EXPECT_EQ(ToUnicode('\xFF'), U'ÿ');
}

TEST(CodePage, ACharacterOutsideBecomesAQuestionMark)
{
    EXPECT_FALSE(Holds(U'Ω'));
    EXPECT_EQ(FromUnicode(U'Ω'), '?');
    EXPECT_EQ(FromUnicode(char32_t{0x80}), '?'); // the number of the euro, but not its character
    EXPECT_EQ(FromUnicode(U'😀'), '?');
    EXPECT_EQ(FromUtf8(u8"aΩ😀z"), "a??z");
}

TEST(CodePage, EveryByteSurvivesTheWayToUtf16AndBack)
{
    const std::u16string utf16 = ToUtf16(AllBytes());
    EXPECT_EQ(utf16.size(), 256U);
    EXPECT_EQ(FromUtf16(utf16), AllBytes());
}

TEST(CodePage, Utf16HasTheCharactersOfTheBytes)
{
    EXPECT_EQ(ToUtf16(""), u"");
    EXPECT_EQ(ToUtf16("A\x80z\xE0"), u"A€zà");
    EXPECT_EQ(ToUtf16(std::string_view("a\0b", 3)), std::u16string_view(u"a\0b", 3));
    EXPECT_EQ(FromUtf16(u""), "");
    EXPECT_EQ(FromUtf16(u"A€zà"), "A\x80z\xE0");
}

TEST(CodePage, ACharacterOfTwoUnitsBecomesOneQuestionMark)
{
    EXPECT_EQ(FromUtf16(u"aΩ😀z"), "a??z");
    EXPECT_EQ(FromUtf16(u"😀"), "?");
}

TEST(CodePage, EachHalfOfABrokenPairBecomesAQuestionMark)
{
    constexpr char16_t high = 0xD83D;
    constexpr char16_t low = 0xDE00;
    EXPECT_EQ(FromUtf16(std::u16string{u'a', high}), "a?");
    EXPECT_EQ(FromUtf16(std::u16string{high, u'a'}), "?a");
    EXPECT_EQ(FromUtf16(std::u16string{low, u'a'}), "?a");
    EXPECT_EQ(FromUtf16(std::u16string{low, high, low}), "??");
    EXPECT_EQ(FromUtf16(std::u16string{high, high, low}), "??");
    EXPECT_EQ(FromUtf16(std::u16string{high, char16_t{0xE000}}), "??");
}

struct MalformedRow {
    std::string name;
    std::u8string utf8;
    std::string text;
};

class MalformedUtf8Test : public ::testing::TestWithParam<MalformedRow>
{
};

TEST_P(MalformedUtf8Test, BecomesQuestionMarks)
{
    EXPECT_EQ(FromUtf8(GetParam().utf8), GetParam().text);
}

const char8_t kOverlongSlashOfThree[] = {0xE0, 0x80, 0xAF, 0};
const char8_t kOverlongSlashOfFour[] = {0xF0, 0x80, 0x80, 0xAF, 0};
const char8_t kLoneContinuation[] = {'a', 0x80, 'b', 0};
const char8_t kOverlongSlashOfTwo[] = {0xC0, 0xAF, 0};
const char8_t kCutOff[] = {'a', 0xE2, 0x82, 0};
const char8_t kBroken[] = {0xE2, 'A', 0};
const char8_t kNoLead[] = {0xFF, 'A', 0};

INSTANTIATE_TEST_SUITE_P(
    Table, MalformedUtf8Test,
    ::testing::Values(MalformedRow{"LoneContinuation", kLoneContinuation, "a?b"},
                      MalformedRow{"OverlongOfTwo", kOverlongSlashOfTwo, "??"},
                      MalformedRow{"OverlongOfThree", kOverlongSlashOfThree, "?"},
                      MalformedRow{"OverlongOfFour", kOverlongSlashOfFour, "?"},
                      MalformedRow{"CutOff", kCutOff, "a?"}, MalformedRow{"Broken", kBroken, "?A"},
                      MalformedRow{"NoLeadByte", kNoLead, "?A"}),
    RowName());

TEST(CodePage, CapitalsStayInsideTheCodePage)
{
    EXPECT_EQ(Capitals("abcxyz 019"), "ABCXYZ 019");
    EXPECT_EQ(Capital('\xE0'), '\xC0'); // à
    EXPECT_EQ(Capital('\xFE'), '\xDE'); // þ
    EXPECT_EQ(Capital('\xFF'), '\x9F'); // ÿ
    EXPECT_EQ(Capital('\x9A'), '\x8A'); // š
    EXPECT_EQ(Capital('\x9C'), '\x8C'); // œ
    EXPECT_EQ(Capital('\x9E'), '\x8E'); // ž
}

TEST(CodePage, WhatHasNoCapitalStays)
{
    for (const char byte :
         {'\xDF', '\xB5', '\xF7', '\xD7', '\x83', '\xAA', '\xBA', '\0', '\r', '['})
        EXPECT_EQ(Capital(byte), byte) << +byte;
}

TEST(CodePage, ACapitalStaysWhatItIs)
{
    for (const char byte : AllBytes())
        EXPECT_EQ(Capital(Capital(byte)), Capital(byte)) << +byte;
}

TEST(CodePage, ShowsAPathInItsOwnCharacters)
{
    EXPECT_EQ(code_page::Shown(std::filesystem::path(u8"/srv/dati/città")), "/srv/dati/citt\xE0");
}

} // namespace
} // namespace tarvex::tests
