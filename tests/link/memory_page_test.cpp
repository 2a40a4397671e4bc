#include "link/memory_page.h"

#include "link/header_pages.h"
#include "link_test_fixture.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

struct BlockRow {
    std::string name;
    std::string index;
    std::string piece;
};

class ReadBlockPieceTest : public ::testing::TestWithParam<BlockRow>
{
};

TEST_P(ReadBlockPieceTest, ComesFromTheTextOfTheIndex)
{
    WorkingState state;
    state.ReadAddrBlock = "before";
    SetReadBlock(state, GetParam().index);
    EXPECT_EQ(state.ReadAddrBlock, GetParam().piece);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ReadBlockPieceTest,
    ::testing::Values(BlockRow{"Block1", "00", "00"}, BlockRow{"Block2", "01", "01"},
                      BlockRow{"Block10", "09", "09"}, BlockRow{"Block11", "10", "0A"},
                      BlockRow{"Block12", "11", "0B"}, BlockRow{"Block16", "15", "0F"},
                      BlockRow{"Block17", "16", "10"}, BlockRow{"Block26", "25", "19"},
                      BlockRow{"Block27", "26", "1A"}, BlockRow{"Block30", "29", "1D"},
                      BlockRow{"Beyond", "30", "before"}, BlockRow{"Below", "-01", "before"},
                      BlockRow{"OneDigit", "1", "before"}, BlockRow{"ThreeDigits", "001", "before"},
                      BlockRow{"Hexadecimal", "0A", "before"}, BlockRow{"Empty", "", "before"},
                      BlockRow{"Blank", " 1", "before"}),
    RowName());

TEST(ReadBlockPiece, AllThirtyCountUpwardsInHexadecimal)
{
    WorkingState state;
    for (int index = 0; index < 30; ++index) {
        SetReadBlock(state, (index < 10 ? "0" : "") + std::to_string(index));
        EXPECT_EQ(std::stoi(state.ReadAddrBlock, nullptr, 16), index);
        EXPECT_EQ(state.ReadAddrBlock.size(), 2U);
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
        state.ReadAddrBlock = "0A";
        state.ReadAddrBank = "0";
        state.ReadAddrPage = "30";
    }

    /// Reads the page and leaves the reply in `reply`.
    void Read()
    {
        OnOpenPort([&](DeviceLink& link) {
            link.UntimedWake();
            ReadPage(link, panel, state);
            reply = link.Reply();
        });
    }

    std::string reply;
};

TEST_F(PageTest, ShowsTheAddressAndSendsItAndTakesTheReply)
{
    unit.pages["0A030"] = "1250";
    std::string shownBefore = "none";
    panel.Text17.Watch([&] { shownBefore = port.sent.back(); });
    Read();
    EXPECT_THAT(port.sent, ElementsAre("}", "a0A030\r"));
    EXPECT_EQ(shownBefore, "}"); // shown before the frame goes out
    EXPECT_EQ(panel.Text17.Text(), "0A030");
    EXPECT_EQ(reply, "31 32 35 30 00 00 00 00 00 00 00 00 00 00 00 00 \r\n");
    EXPECT_EQ(reply.size(), 50U);
}

TEST_F(PageTest, WithoutABlockEverReadTheFrameHasFiveBytes)
{
    state.ReadAddrBlock = "";
    Read();
    EXPECT_THAT(port.sent, ElementsAre("}", "a030\r"));
    EXPECT_EQ(panel.Text17.Text(), "030");
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
            answered = ReadHeaderPages(link, panel, state, kHeaderPages, values);
        });
    }

    HeaderValues values;
    bool answered = false;
};

TEST_F(HeaderPagesTest, ReadsOneFieldAPageAndNothingBehindIt)
{
    state.ReadAddrBlock = "1D";
    for (const HeaderPage& page : kHeaderPages)
        unit.pages["1D0" + std::string(page.page)] = "0123456789ABCDEF";
    Read();
    EXPECT_TRUE(answered);
    EXPECT_EQ(values.cliente, "01234567");
    EXPECT_EQ(values.cantiere, "01234567");
    EXPECT_EQ(values.tubo, "0123");
    EXPECT_EQ(values.profondità, "0123");
    EXPECT_EQ(values.passo, "0");
    EXPECT_EQ(values.guide, "0");
    EXPECT_EQ(values.nord, "0123");
    EXPECT_EQ(values.nlet, "01");
    EXPECT_EQ(values.data, "01234567");
    EXPECT_EQ(values.ora, "01234567");
    EXPECT_EQ(port.sent.back(), "a1D090\r");
}

TEST_F(HeaderPagesTest, ASkippedPageKeepsTheValueItHad)
{
    state.ReadAddrBlock = "00";
    values.tubo = "OLD ";
    values.cantiere = "OLD SITE";
    unit.answerWake = [](int wake) { return wake == 3 ? "?" : "!"; };
    unit.SetHeader(0, {"C", "S", "T", "0015", "1", "4"});
    Read();
    EXPECT_EQ(values.tubo, "OLD ");
    EXPECT_EQ(values.cantiere, "S" + std::string(7, '\0'));
    EXPECT_EQ(unit.reads, 9);
}

TEST_F(HeaderPagesTest, GarbledSingleBytesKeepTheirValueAndOthersComeOutEmpty)
{
    values = {"c", "s", "t", "d", "p", "g", "n", "l", "d", "o"};
    unit.answerRead = [](int, const std::string&) { return std::string(50, '?'); };
    Read();
    EXPECT_EQ(values.passo, "p");
    EXPECT_EQ(values.guide, "g");
    EXPECT_EQ(values.cliente + values.cantiere + values.tubo + values.profondità + values.nord +
                  values.nlet + values.data + values.ora,
              "");
}

TEST_F(HeaderPagesTest, ASilentFirstWakeReadsNothing)
{
    SilenceUnit();
    values.cliente = "kept";
    Read();
    EXPECT_FALSE(answered);
    EXPECT_EQ(values.cliente, "kept");
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_THAT(port.sent, ElementsAre("}"));
}

} // namespace
} // namespace tarvex::tests
