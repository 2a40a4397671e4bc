#include "unit/conversation.h"
#include "unit/escape.h"
#include "unit/hexadecimal.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tarvex::unit
{
namespace
{

TEST(AddressOf, ReadsFiveCapitalDigits)
{
    EXPECT_EQ(AddressOf("00000"), 0U);
    EXPECT_EQ(AddressOf("1D090"), 0x1D090U);
    EXPECT_EQ(AddressOf("FFFFF"), 0xFFFFFU);
}

TEST(AddressOf, RefusesAnythingElse)
{
    for (const auto* text : {"", "0000", "000000", "0a000", "0000G", " 0000", "-0001", "0000 "})
        EXPECT_EQ(AddressOf(text), std::nullopt) << text;
}

TEST(PageText, IsFiftyCharactersWithCapitalDigits)
{
    const Page page{0x00, 0x01, 0x0A, 0x10, 0x7F, 0x80, 0xAB, 0xFF,
                    'A',  'B',  '0',  ' ',  '+',  '\r', '\n', 0xFE};
    EXPECT_EQ(PageText(page), "00 01 0A 10 7F 80 AB FF 41 42 30 20 2B 0D 0A FE \r\n");
    EXPECT_EQ(PageText(page).size(), kPageCharacters);
    EXPECT_EQ(kPageCharacters, 50U);
}

TEST(Escape, ShowsEveryByte)
{
    EXPECT_EQ(Escape("a00A10 }~!"), "a00A10 }~!");
    EXPECT_EQ(Escape("\r\n\\"), "\\r\\n\\\\");
    EXPECT_EQ(Escape(std::string("\x00\x1F\x7F\xE0\xFF", 5)), "\\x00\\x1F\\x7F\\xE0\\xFF");
}

TEST(Unescape, GivesBackAllBytesThatEscapeShows)
{
    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    EXPECT_EQ(Unescape(Escape(all)), all);
    EXPECT_EQ(Unescape("\\xff"), "\xFF");
}

TEST(Unescape, RefusesABackslashFollowedByAnythingElse)
{
    for (const auto* text : {"\\", "a\\", "\\t", "\\x", "\\x1", "\\xG0", "\\x1 ", "\\x-1"})
        EXPECT_THROW(Unescape(text), std::invalid_argument) << text;
}

TEST(LineOf, AFrameShowsTimeSpeakerAndItsCarriageReturn)
{
    EXPECT_EQ(LineOf(Heard{Heard::Kind::Frame, "a0A030"}, Time{12'000'345}),
              "    12.000345  manager  a0A030\\r");
}

TEST(LineOf, AWakeShowsTheCharacter)
{
    EXPECT_EQ(LineOf(Heard{Heard::Kind::Wake, "}"}, Time{0}), "     0.000000  manager  }");
}

TEST(LineOf, NoiseIsMarked)
{
    EXPECT_EQ(LineOf(Heard{Heard::Kind::Noise, "x\xFF"}, Time{1'500'000}),
              "     1.500000  manager  x\\xFF  (passed over)");
}

TEST(LineOf, AReplyShowsItsBytes)
{
    EXPECT_EQ(LineOf(Reply{Time{0}, "140423101530\r\n", false}, Time{999'999}),
              "     0.999999  unit     140423101530\\r\\n");
}

TEST(LineOf, AHangUpIsNamed)
{
    EXPECT_EQ(LineOf(Reply{Time{0}, "", true}, Time{1'234'567'000'001}),
              "1234567.000001  unit     (hang-up)");
}

} // namespace
} // namespace tarvex::unit
