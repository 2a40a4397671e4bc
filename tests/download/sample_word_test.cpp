#include "download/sample_word.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

struct WordRow {
    std::string name;
    std::string digits;
    std::string result;
};

class SampleWordTest : public ::testing::TestWithParam<WordRow>
{
};

TEST_P(SampleWordTest, Decodes)
{
    std::string result = "before";
    DecodeSampleWord(GetParam().digits, result);
    EXPECT_EQ(result, GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(
    WellFormed, SampleWordTest,
    ::testing::Values(WordRow{"PositiveZero", "8000", "+00000"},
                      WordRow{"NegativeZero", "0000", "-00000"},
                      WordRow{"PlusOne", "8001", "+00001"}, WordRow{"MinusOne", "0001", "-00001"},
                      WordRow{"Plus500", "81F4", "+00500"}, WordRow{"Minus500", "01F4", "-00500"},
                      WordRow{"Plus4660", "9234", "+04660"}, WordRow{"Minus4660", "1234", "-04660"},
                      WordRow{"Largest", "FFFF", "+32767"}, WordRow{"Smallest", "7FFF", "-32767"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(Malformed, SampleWordTest,
                         ::testing::Values(WordRow{"SmallLetterSecond", "8a00", "+10752"},
                                           WordRow{"SmallLetterThird", "80a0", "+00672"},
                                           WordRow{"SmallLetterFirst", "a000", "+139264"},
                                           WordRow{"SmallFFirst", "f000", "+159744"},
                                           WordRow{"GFirst", "G000", "-65536"},
                                           WordRow{"ZFirst", "Z000", "-143360"},
                                           WordRow{"Colon", "8:00", "+00768"},
                                           WordRow{"BlankSecond", "0 00", "--04096"},
                                           WordRow{"FourBlanks", "    ", "--69904"},
                                           WordRow{"FourMinus", "----", "+-45875"},
                                           WordRow{"SlashFirst", "/000", "+-36864"},
                                           WordRow{"LongerThanFour", "81F4FFFF", "+00500"},
                                           WordRow{"NulFirst",
                                                   std::string("\0"
                                                               "000",
                                                               4),
                                                   "--196608"},
                                           WordRow{"HighByteLast", "000\xFF", "-00200"}),
                         RowName());

TEST(SampleWord, EveryWellFormedWordHasASignAndFiveDigits)
{
    const std::string digits = "0123456789ABCDEF";
    for (std::size_t word = 0; word <= 0xFFFF; word += 1) {
        std::string result;
        DecodeSampleWord(std::string{digits[word >> 12], digits[word >> 8 & 15],
                                     digits[word >> 4 & 15], digits[word & 15]},
                         result);
        ASSERT_EQ(result.size(), 6U) << word;
        ASSERT_EQ(result[0], word & 0x8000 ? '+' : '-') << word;
        ASSERT_EQ(std::stoul(result.substr(1)), word & 0x7FFF) << word;
    }
}

TEST(SampleWord, FewerThanFourCharactersFailAndLeaveTheResultEmpty)
{
    for (const std::string digits : {"", "8", "80", "800"}) {
        std::string result = "before";
        EXPECT_THROW(DecodeSampleWord(digits, result), RunTimeFailure);
        EXPECT_EQ(result, "") << digits;
    }
}

} // namespace
} // namespace tarvex::tests
