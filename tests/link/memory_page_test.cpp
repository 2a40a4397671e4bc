#include "link/memory_page.h"

#include "core/conversion.h"

#include "link/header_pages.h"
#include "link_test_fixture.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

struct BlockRow {
    std::string name;
    double number;
    std::string piece;
};

class ReadBlockPieceTest : public ::testing::TestWithParam<BlockRow>
{
};

TEST_P(ReadBlockPieceTest, ComesFromTheNumber)
{
    WorkingState state;
    state.readAddrBlock = "before";
    SetReadBlock(state, GetParam().number);
    EXPECT_EQ(state.readAddrBlock, GetParam().piece);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ReadBlockPieceTest,
    ::testing::Values(
        BlockRow{"Block1", 1, "00"}, BlockRow{"Block2", 2, "01"}, BlockRow{"Block10", 10, "09"},
        BlockRow{"Block11", 11, "0A"}, BlockRow{"Block12", 12, "0B"}, BlockRow{"Block16", 16, "0F"},
        BlockRow{"Block17", 17, "10"}, BlockRow{"Block26", 26, "19"}, BlockRow{"Block27", 27, "1A"},
        BlockRow{"Block30", 30, "1D"}, BlockRow{"Beyond", 31, "before"},
        BlockRow{"Zero", 0, "before"}, BlockRow{"Below", -3, "before"},
        BlockRow{"HalfGoesUp", 2.5, "02"}, BlockRow{"HalfBelowTheFirst", 0.5, "before"},
        BlockRow{"JustBelowTheFirst", 0.6, "before"}, BlockRow{"HalfPastTheLast", 30.5, "before"},
        BlockRow{"JustPastTheLast", 30.4, "1D"}, BlockRow{"NoNumber", std::nan(""), "before"}),
    RowName());

TEST(ReadBlockPiece, AllThirtyCountUpwardsInHexadecimal)
{
    WorkingState state;
    for (int index = 0; index < 30; ++index) {
        SetReadBlock(state, index + 1);
        EXPECT_EQ(std::stoi(state.readAddrBlock, nullptr, 16), index);
        EXPECT_EQ(state.readAddrBlock.size(), 2U);
    }
}

TEST(ReadBlockPiece, GoesByTheTwoDigitsOfTheIndex)
{
    for (int tenths = -50; tenths <= 1000; ++tenths) {
        const double number = tenths / 10.0;
        const std::string digits = TwoDigits(number - 1);
        const bool isBlock = digits.size() == 2 && digits >= "00" && digits <= "29";
        WorkingState state;
        SetReadBlock(state, number);
        EXPECT_EQ(state.readAddrBlock, isBlock ? TwoHexDigits(std::stoi(digits)) : "") << number;
    }
}

struct DecodeRow {
    std::string name;
    std::string reply;
    int bytes;
    std::string text;
};

class DecodePageTextTest : public ::testing::TestWithParam<DecodeRow>
{
};

TEST_P(DecodePageTextTest, GivesTheField)
{
    std::string field = "before";
    SkipOnError rule;
    DecodePageText(GetParam().reply, GetParam().bytes, field);
    EXPECT_EQ(field, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Table, DecodePageTextTest,
    ::testing::Values(DecodeRow{"FourBytes", "31 32 35 30 00 00 ", 4, "1250"},
                      DecodeRow{"EightBytes", "43 4C 49 45 4E 54 20 32 ", 8, "CLIENT 2"},
                      DecodeRow{"FirstByteOnly", "41 42 ", 1, "A"},
                      DecodeRow{"SmallLetters", "4c 4D 4e 4F ", 4, "LMNO"},
                      DecodeRow{"Nul", "41 00 42 00 ", 4, std::string("A\0B\0", 4)},
                      DecodeRow{"HighBytes", "E0 FF 80 ", 3, "\xE0\xFF\x80"},
                      DecodeRow{"BlanksStay", "20 41 20 20 ", 4, " A  "},
                      DecodeRow{"AnySeparator", "41x42\r43\n44", 4, "ABCD"},
                      DecodeRow{"OnePairBad", "41 4? 43 44 ", 4, "ACD"},
                      DecodeRow{"EveryPairBad", "zz zz zz zz ", 4, ""},
                      DecodeRow{"ShiftedByOne", "x31 32 35 30 ", 4, ""},
                      DecodeRow{"EmptyReply", "", 8, ""}, DecodeRow{"ReplyOfTheWake", "!", 8, ""},
                      DecodeRow{"ReplyEndsInAPair", "41 4", 4, "A"}),
    RowName());

TEST(DecodePageCharacter, TakesTheFirstByte)
{
    std::string field = "before";
    DecodePageCharacter("31 32 ", field);
    EXPECT_EQ(field, "1");
}

TEST(DecodePageCharacter, KeepsTheOldValueWhenThePairIsBad)
{
    SkipOnError rule;
    std::string field = "4";
    DecodePageCharacter("3? 32 ", field);
    EXPECT_EQ(field, "4");
    DecodePageCharacter("", field);
    EXPECT_EQ(field, "4");
}

class PageTest : public LinkTest
{
protected:
    void SetUp() override
    {
        state.readAddrBlock = "0A";
        state.readAddrBank = "0";
        state.readAddrPage = "30";
    }

    /// Reads the page and leaves the reply in `reply`.
    void Read()
    {
        OnOpenPort([&](DeviceLink& link) {
            link.UntimedWake();
            ReadPage(link, panel.readAddress, state);
            reply = link.Reply();
        });
    }

    std::string reply;
};

TEST_F(PageTest, ShowsTheAddressAndSendsItAndTakesTheReply)
{
    unit.pages["0A030"] = "1250";
    std::string shownBefore = "none";
    panel.readAddress.Watch([&] { shownBefore = port.sent.back(); });
    Read();
    EXPECT_THAT(port.sent, ElementsAre("}", "a0A030\r"));
    EXPECT_EQ(shownBefore, "}"); // shown before the frame goes out
    EXPECT_EQ(panel.readAddress.Text(), "0A030");
    EXPECT_EQ(reply, "31 32 35 30 00 00 00 00 00 00 00 00 00 00 00 00 \r\n");
    EXPECT_EQ(reply.size(), 50U);
}

TEST_F(PageTest, WithoutABlockEverReadTheFrameHasFiveBytes)
{
    state.readAddrBlock = "";
    Read();
    EXPECT_THAT(port.sent, ElementsAre("}", "a030\r"));
    EXPECT_EQ(panel.readAddress.Text(), "030");
}

TEST_F(PageTest, TakesALongReplyWhole)
{
    unit.answerRead = [](int, const std::string& page) { return page + "extra"; };
    Read();
    EXPECT_EQ(reply.size(), 55U);
    int left = -1;
    OnOpenPort([&](DeviceLink&) { left = port.InBufferCount(); });
    EXPECT_EQ(left, 0);
}

TEST_F(PageTest, ExactlyFiftyCharactersAreEnoughAndFortyNineAreNot)
{
    unit.answerRead = [](int read, const std::string& page) {
        return page.substr(0, read == 1 ? 50 : 49);
    };
    Read();
    EXPECT_EQ(finishedHandlers, 1);
    world.EndProgramAt(100'000);
    Read();
    EXPECT_EQ(finishedHandlers, 1);
}

class HeaderPagesTest : public LinkTest
{
protected:
    void Read()
    {
        OnOpenPort([&](DeviceLink& link) {
            answered = ReadHeaderPages(link, panel.readAddress, state, texts);
        });
    }

    HeaderTexts texts;
    bool answered = false;
};

TEST_F(HeaderPagesTest, ReadsOneFieldAPageAndNothingAfterIt)
{
    state.readAddrBlock = "1D";
    for (const auto& row : kHeaderBoxes)
        unit.pages["1D0" + std::string(row.page)] = "0123456789ABCDEF";
    Read();
    EXPECT_TRUE(answered);
    EXPECT_EQ(texts[Client], "01234567");
    EXPECT_EQ(texts[Site], "01234567");
    EXPECT_EQ(texts[Tube], "0123");
    EXPECT_EQ(texts[DepthMetres], "012");
    EXPECT_EQ(texts[DepthTenths], "3");
    EXPECT_EQ(texts[Step], "0");
    EXPECT_EQ(texts[Guides], "0");
    EXPECT_EQ(texts[North], "0123");
    EXPECT_EQ(texts[Readout], "01");
    EXPECT_EQ(texts[Date], "01234567");
    EXPECT_EQ(texts[Time], "01234567");
    EXPECT_EQ(port.sent.back(), "a1D090\r");
}

TEST_F(HeaderPagesTest, ASkippedPageKeepsTheValueItHad)
{
    state.readAddrBlock = "00";
    texts[Tube] = "OLD ";
    texts[Site] = "OLD SITE";
    unit.answerWake = [](int wake) { return wake == 3 ? "?" : "!"; };
    unit.SetHeader(0, {"C", "S", "T", "0015", "1", "4"});
    Read();
    EXPECT_EQ(texts[Tube], "OLD ");
    EXPECT_EQ(texts[Site], "S" + std::string(7, '\0'));
    EXPECT_EQ(unit.reads, 9);
}

TEST_F(HeaderPagesTest, GarbledSingleBytesKeepTheirValueAndOthersComeOutEmpty)
{
    texts = {{"c", "s", "t", "d", "e", "p", "g", "n", "l", "d", "o"}};
    unit.answerRead = [](int, const std::string&) { return std::string(50, '?'); };
    Read();
    EXPECT_EQ(texts[Step], "p");
    EXPECT_EQ(texts[Guides], "g");
    EXPECT_EQ(texts[Client] + texts[Site] + texts[Tube] + texts[DepthMetres] + texts[DepthTenths] +
                  texts[North] + texts[Readout] + texts[Date] + texts[Time],
              "");
}

TEST_F(HeaderPagesTest, ASilentFirstWakeReadsNothing)
{
    SilenceUnit();
    texts[Client] = "kept";
    Read();
    EXPECT_FALSE(answered);
    EXPECT_EQ(texts[Client], "kept");
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_THAT(port.sent, ElementsAre("}"));
}

} // namespace
} // namespace tarvex::tests
