#include "blocks/read_block.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

const std::vector<std::string> kDam = {"ROSSI   ", "DIGA A  ", "T12 ", "1250",     "1",
                                       "4",        "+015",     "03",   "161126AB", "093015CD"};

/// The boxes of kDam, and the calibration of the record that was on the panel.
const std::vector<std::string> kDamShown = {
    "ROSSI   ", "DIGA A  ", "T12 ",   "125",     "0",       "1",       "4",       "+015",
    "03",       "161126",   "093015", "+1.0000", "+0.0000", "+1.0000", "+0.0000", "0"};

/// The wakes and frames of a whole read of the block with that piece.
std::vector<std::string> Conversation(const std::string& block)
{
    std::vector<std::string> sent;
    for (const char page : std::string("0123456789")) {
        sent.emplace_back("}");
        sent.push_back("a" + block + "0" + page + "0\r");
    }
    return sent;
}

class ReadBlockTest : public LogicTest
{
protected:
    void Read()
    {
        ClickLink([&](DeviceLink& link) { ReadBlock(panel, state, link, view); });
    }

    void Read(const std::string& block)
    {
        panel.blockNumber.SetText(block);
        Read();
    }

    /// Nothing but the panel may change: a look only.
    void ExpectNothingStored() const
    {
        EXPECT_EQ(state.blockHeader, DefaultHeader(0));
        EXPECT_EQ(state.currentBlock, 1);
        EXPECT_EQ(FileBytes(state.headerFilePath), defaults_);
        EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("intestazione"));
    }

    std::string defaults_ = FileBytes(state.headerFilePath);
};

TEST_F(ReadBlockTest, FillsThePanelFromTheTenPagesOfTheBlock)
{
    unit.SetHeader(10, kDam);
    Read("11");
    EXPECT_EQ(port.sent, Conversation("0A"));
    EXPECT_EQ(HeaderBoxTexts(), kDamShown);
    EXPECT_EQ(panel.blockNumber.Text(), "11");
    EXPECT_LINK_AT_REST();
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(ReadBlockTest, LeavesTheAddressOfTheLastPage)
{
    Read("02");
    EXPECT_EQ(panel.readAddress.Text(), "01090");
    EXPECT_EQ(state.readAddrBlock, "01");
    EXPECT_EQ(state.readAddrBank, "0");
    EXPECT_EQ(state.readAddrPage, "90");
}

TEST_F(ReadBlockTest, StoresNothing)
{
    unit.SetHeader(0, kDam);
    Read();
    ExpectNothingStored();
}

TEST_F(ReadBlockTest, ExchangesEveryByteInItsOrderOnOnePort)
{
    LogIndicator();
    panel.portOptions.Select(1);
    Read("02");
    std::vector<std::string> expected = {"Label34 on", "Shape1 on", "port 2", "open"};
    for (const char page : std::string("0123456789")) {
        expected.insert(expected.end(), {"> }", "< !", std::string("> a010") + page + "0\r",
                                         "< " + ScriptedUnit::PageReply("")});
    }
    expected.insert(expected.end(), {"close", "Label34 off", "Shape1 off"});
    EXPECT_EQ(port.history, expected);
}

TEST_F(ReadBlockTest, ChangesThePanelAtOnceAndInItsOrderAfterTheLastPage)
{
    std::string order;
    const auto watch = [&](TextBox& box, std::string name) {
        box.Watch([this, &order, name = std::move(name)] {
            EXPECT_EQ(unit.reads, 10);
            EXPECT_TRUE(port.IsOpen());
            order += name + " ";
        });
    };
    for (const auto& row : kHeaderBoxes)
        watch(panel.header[row.box], std::string(row.control.substr(4)));
    for (const auto& row : kCalibrationBoxes)
        watch(panel.calibration[row.box], std::string(row.control.substr(4)));
    Read();
    EXPECT_EQ(order, "3 4 5 6 13 7 8 9 10 11 12 ");
}

TEST_F(ReadBlockTest, ShowsEachAddressDuringTheRun)
{
    std::vector<std::string> shown;
    panel.readAddress.Watch([&] { shown.push_back(panel.readAddress.Text()); });
    Read("30");
    EXPECT_THAT(shown, ElementsAre("1D000", "1D010", "1D020", "1D030", "1D040", "1D050", "1D060",
                                   "1D070", "1D080", "1D090"));
}

struct NumberRow {
    std::string name;
    std::string text;
    std::string block; ///< the piece of the address, "07" being that of the read before
};

class ReadBlockNumberTest : public ReadBlockTest, public ::testing::WithParamInterface<NumberRow>
{
};

TEST_P(ReadBlockNumberTest, SetsTheAddressOrLeavesThatOfTheReadBefore)
{
    Read("08");
    port.sent.clear();
    Read(GetParam().text);
    EXPECT_EQ(port.sent, Conversation(GetParam().block));
    EXPECT_EQ(panel.blockNumber.Text(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ReadBlockNumberTest,
    ::testing::Values(NumberRow{"First", "01", "00"}, NumberRow{"OneDigit", "9", "08"},
                      NumberRow{"Eleven", "11", "0A"}, NumberRow{"Seventeen", "17", "10"},
                      NumberRow{"Last", "30", "1D"}, NumberRow{"Beyond", "31", "07"},
                      NumberRow{"FarBeyond", "99", "07"}, NumberRow{"Zero", "00", "07"},
                      NumberRow{"Empty", "", "07"}, NumberRow{"Letters", "ab", "07"},
                      NumberRow{"Negative", "-1", "07"}, NumberRow{"JustBelowOne", ".6", "07"},
                      NumberRow{"NumberThenLetter", "5x", "04"},
                      NumberRow{"LeadingBlank", " 5", "04"}, NumberRow{"Plus", "+5", "04"}),
    RowName());

TEST_F(ReadBlockTest, ReadsWithoutABlockPieceWhenThereHasBeenNone)
{
    Read("31");
    ASSERT_EQ(port.sent.size(), 20U);
    EXPECT_EQ(port.sent[1], "a000\r");
    EXPECT_EQ(port.sent[19], "a090\r");
    EXPECT_EQ(panel.readAddress.Text(), "090");
}

TEST_F(ReadBlockTest, SaysNotConnectedAndLeavesThePanelWhenTheUnitIsSilent)
{
    unit.answerWake = [](int) { return ""; };
    boxes.Expect("Attention: TAR--VEX not connected", [&] {
        EXPECT_EQ(world.Now(), 600);
        EXPECT_LINK_WAITING();
    });
    const std::vector<std::string> before = HeaderBoxTexts();
    LogIndicator();
    Read();
    EXPECT_THAT(port.history, ElementsAre("Label34 on", "Shape1 on", "port 1", "open", "> }",
                                          "close", "Label34 off", "Shape1 off"));
    EXPECT_EQ(HeaderBoxTexts(), before);
    EXPECT_EQ(panel.readAddress.Text(), "");
    EXPECT_EQ(finishedHandlers, 1);
    ExpectNothingStored();
}

TEST_F(ReadBlockTest, APortThatCannotBeOpenedBlanksTheBoxesWithoutAWord)
{
    port.refused = {1};
    panel.readAddress.SetText("shown");
    Read();
    EXPECT_THAT(HeaderBoxTexts(), ElementsAre("", "", "", "", "", "", "", "", "", "", "", "+1.0000",
                                              "+0.0000", "+1.0000", "+0.0000", "0"));
    EXPECT_EQ(panel.readAddress.Text(), "shown");
    EXPECT_EQ(world.Now(), 0);
    EXPECT_THAT(port.history, ElementsAre("port 1"));
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_EQ(state.readAddrPage, "90");
    EXPECT_LINK_AT_REST();
    ExpectNothingStored();
}

TEST_F(ReadBlockTest, AFirstWakeAnsweredOtherwiseCostsTheClientOnly)
{
    unit.SetHeader(0, kDam);
    unit.answerWake = [](int wake) { return wake == 1 ? "?" : "!"; };
    Read();
    std::vector<std::string> shown = kDamShown;
    shown[0] = "";
    EXPECT_EQ(HeaderBoxTexts(), shown);
    EXPECT_EQ(unit.wakes, 10);
    EXPECT_EQ(unit.reads, 9);
    EXPECT_EQ(boxes.shown, 0);
}

TEST_F(ReadBlockTest, TheSecondWakeHasNoLimitEvenAfterAWrongFirstAnswer)
{
    unit.answerWake = [](int wake) { return wake == 1 ? "?" : ""; };
    world.EndProgramAt(3'000'000);
    Read();
    EXPECT_THAT(port.sent, ElementsAre("}", "}"));
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_LINK_WAITING();
}

TEST_F(ReadBlockTest, EveryWakeAnsweredOtherwiseBlanksAllAndSendsNoFrame)
{
    unit.answerWake = [](int) { return "!!"; };
    Read();
    EXPECT_THAT(port.sent, ElementsAreArray(std::vector<std::string>(10, "}")));
    EXPECT_EQ(panel.header[Client].Text() + panel.header[DepthMetres].Text() +
                  panel.header[Time].Text(),
              "");
    EXPECT_EQ(panel.readAddress.Text(), "");
    EXPECT_LINK_AT_REST();
}

TEST_F(ReadBlockTest, WaitsForEverInAPageAndEndsWithTheProgram)
{
    unit.answerRead = [](int read, const std::string& reply) { return read < 3 ? reply : ""; };
    world.EndProgramAt(60'000);
    const std::vector<std::string> before = HeaderBoxTexts();
    Read();
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(world.Now(), 60'000);
    EXPECT_EQ(HeaderBoxTexts(), before);
    EXPECT_EQ(port.sent.back(), "a00020\r");
    EXPECT_LINK_WAITING();
    ExpectNothingStored();
}

TEST_F(ReadBlockTest, AnExtraByteWithTheNextAnswerCostsThatPage)
{
    unit.SetHeader(0, kDam);
    unit.answerRead = [this](int read, const std::string& reply) {
        if (read == 2) world.After(2, [this] { port.Receive("x"); }); // 1 ms after the page
        return reply;
    };
    Read();
    std::vector<std::string> shown = kDamShown;
    shown[2] = "";
    EXPECT_EQ(HeaderBoxTexts(), shown);
    EXPECT_EQ(unit.reads, 9);
}

TEST_F(ReadBlockTest, AnExtraByteBeforeTheNextAnswerShiftsTheWakesAfterIt)
{
    unit.SetHeader(0, kDam);
    unit.latency = 10;
    unit.answerRead = [this](int read, const std::string& reply) {
        if (read == 2) world.After(11, [this] { port.Receive("x"); });
        return reply;
    };
    Read();
    // The byte is the answer to the third wake, that wake's "!" answers the fourth, and the
    // fourth's comes before page "30", whose digits are then out of step.
    std::vector<std::string> shown = kDamShown;
    shown[2] = "";
    shown[3] = "";
    shown[4] = "";
    EXPECT_EQ(HeaderBoxTexts(), shown);
    EXPECT_EQ(unit.wakes, 10);
}

TEST_F(ReadBlockTest, BytesAfterAPageThatHaveComeWithItDoNoHarm)
{
    unit.SetHeader(0, kDam);
    unit.answerRead = [](int, const std::string& reply) { return reply + "\r\nOK"; };
    Read();
    EXPECT_EQ(HeaderBoxTexts(), kDamShown);
}

TEST_F(ReadBlockTest, AGarbledPairLeavesItsFieldACharacterShort)
{
    unit.SetHeader(0, kDam);
    unit.answerRead = [](int, const std::string& reply) { return "zz" + reply.substr(2); };
    Read();
    EXPECT_THAT(HeaderBoxTexts(),
                ElementsAre("OSSI   ", "IGA A  ", "12 ", "250", "", "", "", "015", "3", "61126A",
                            "93015C", "+1.0000", "+0.0000", "+1.0000", "+0.0000", "0"));
}

TEST_F(ReadBlockTest, ShowsWhateverTheUnitHolds)
{
    const std::string odd("\0\xE0\r\xFF\x7F\0\0z", 8);
    unit.SetHeader(0, {odd, "", "", "a\xE8", "", "?"});
    Read();
    EXPECT_EQ(panel.header[Client].Text(), odd);
    EXPECT_EQ(panel.header[Site].Text(), std::string(8, '\0'));
    EXPECT_EQ(panel.header[DepthMetres].Text(), std::string("a\xE8\0", 3));
    EXPECT_EQ(panel.header[DepthTenths].Text(), std::string(1, '\0'));
    EXPECT_EQ(panel.header[Guides].Text(), "?");
}

TEST_F(ReadBlockTest, AReloadBringsTheStoredRecordBack)
{
    unit.SetHeader(0, kDam);
    Read();
    Click([&] { ReloadPanel(panel, state); });
    EXPECT_EQ(panel.header[Client].Text(), "CLIENT 1");
    EXPECT_EQ(panel.header[Date].Text(), "DDMMYY");
}

TEST_F(ReadBlockTest, TheEndOfTheProgramInTheFirstWakeShowsNothingMore)
{
    unit.answerWake = [](int) { return ""; };
    world.EndProgramAt(599);
    Read();
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }"));
}

} // namespace
} // namespace tarvex::tests
