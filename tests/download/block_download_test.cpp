#include "download_test_fixture.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(DownloadTest, WritesTheThreeFilesByteForByte)
{
    SetSmallSurvey(unit, 2);
    Download("03");

    EXPECT_THAT(Reports(),
                ElementsAre(kSmallSurvey + "dat.dat", kSmallSurvey + "num.dat", "datiram.dat"));
    EXPECT_EQ(Report(kSmallSurvey + "dat.dat"), SmallSurveyHeadReport());
    EXPECT_EQ(Report(kSmallSurvey + "dat.dat").size(), 798U);
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(SmallSurveyRows()));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf(SmallSurveyRows()));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat").size(), 791U);
    EXPECT_EQ(finishedHandlers, 1);
    EXPECT_LINK_AT_REST();
}

TEST_F(DownloadTest, TheLiteralBytesOfARow)
{
    SetSmallSurvey(unit, 0);
    Download();
    EXPECT_EQ(Report("datiram.dat").substr(226, 113),
              std::string(40, ' ') + "001.5; +00500; -00500; +00000; -00000; " +
                  std::string(32, '\0') + "\r ");
    EXPECT_EQ(Report("datiram.dat").substr(0, 113),
              "Depth;A1;B1;A3;B3;A2;B2;A4;B4           " + std::string(71, '\0') + "\r ");
}

TEST_F(DownloadTest, SendsAWakeAndAFrameAPageFromTheBottomUpwards)
{
    SetSmallSurvey(unit, 2);
    Download("03");
    EXPECT_THAT(port.sent,
                ElementsAre("}", "a02000\r", "}", "a02010\r", "}", "a02020\r", "}", "a02030\r", "}",
                            "a02040\r", "}", "a02050\r", "}", "a02060\r", "}", "a02070\r", "}",
                            "a02080\r", "}", "a02090\r", "}", "a02100\r", "}", "a02110\r", "}",
                            "a02120\r"));
    EXPECT_EQ(panel.readAddress.Text(), "02120");
    EXPECT_EQ(port.history.front(), "port 1");
    EXPECT_EQ(port.history[1], "open");
    EXPECT_EQ(port.history.back(), "close");
}

TEST_F(DownloadTest, FillsEightColumnsWithFourGuides)
{
    SetSurvey(unit, 0, "0010", "1", "4");
    unit.SetReadings(0, 0, {0x8001, 0x0002, 0x8003, 0x0004, 0x8005, 0x0006, 0x8007, 0x0008});
    Download();
    const std::vector<std::string> rows = {RowRecord(
        "001.0", {"+00001", "-00002", "+00003", "-00004", "+00005", "-00006", "+00007", "-00008"})};
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(rows));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf(rows));
}

TEST_F(DownloadTest, OnlyTheTextFourMeansFourGuides)
{
    for (const std::string guides : {"2", "3", "0", " ", "8", "\x01"}) {
        SetSurvey(unit, 0, "0010", "1", guides);
        Download();
        EXPECT_EQ(Report("datiram.dat").substr(2 * 113 + 79, 32), std::string(32, '\0')) << guides;
    }
}

TEST_F(DownloadTest, TwoGuidesAfterFourHaveNulBytesInTheOtherColumnsAgain)
{
    SetSurvey(unit, 0, "0010", "1", "4");
    Download();
    SetSmallSurvey(unit, 0);
    Download();
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(SmallSurveyRows()));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf(SmallSurveyRows()));
}

TEST_F(DownloadTest, ASecondDownloadReplacesTheFilesOfTheFirst)
{
    SetSurvey(unit, 0, "0300", "0", "4");
    Download();
    SetSmallSurvey(unit, 0);
    Download();
    EXPECT_THAT(Reports(),
                ElementsAre(kSmallSurvey + "dat.dat", kSmallSurvey + "num.dat", "datiram.dat"));
    EXPECT_EQ(Report(kSmallSurvey + "dat.dat"), SmallSurveyHeadReport());
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(SmallSurveyRows()));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf(SmallSurveyRows()));
}

TEST_F(DownloadTest, AnotherReadoutLeavesTheReportsOfTheFirst)
{
    SetSmallSurvey(unit, 0);
    Download();
    unit.pages["00070"] = "04";
    Download();
    EXPECT_THAT(Reports(), ElementsAre(kSmallSurvey + "dat.dat", kSmallSurvey + "num.dat",
                                       "CLIENT0 -SITE0000-T12 -04-dat.dat",
                                       "CLIENT0 -SITE0000-T12 -04-num.dat", "datiram.dat"));
}

TEST_F(DownloadTest, TakesSixCharactersOfTheTimeAndSixOfTheDate)
{
    SetSmallSurvey(unit, 0);
    unit.pages["00080"] = "161126XY";
    unit.pages["00090"] = "093015XY";
    Download();
    const std::string head = Report(kSmallSurvey + "dat.dat");
    EXPECT_EQ(head.substr(16 * 42, 42), Padded("Date: ;16/11/26", 40) + "\r ");
    EXPECT_EQ(head.substr(18 * 42, 42), Padded("Time:;09:30:15", 40) + "\r ");
}

TEST_F(DownloadTest, AGarbledPairOfTheTimeIsNotMadeUpFromAfterTheSix)
{
    SetSmallSurvey(unit, 0);
    unit.pages["00090"] = "093015XY";
    unit.answerRead = [](int read, const std::string& reply) {
        return read == 10 ? "zz" + reply.substr(2) : reply;
    };
    Download();
    EXPECT_EQ(Report(kSmallSurvey + "dat.dat").substr(18 * 42, 40), Padded("Time:;93:01:5", 40));
}

TEST_F(DownloadTest, TouchesNeitherTheHeaderBoxesNorTheHeaderNorItsFile)
{
    SetSmallSurvey(unit, 0);
    const std::vector<std::string> boxesBefore = HeaderBoxTexts();
    const std::string fileBefore = FileBytes(state.headerFilePath);
    Download();
    EXPECT_EQ(HeaderBoxTexts(), boxesBefore);
    EXPECT_EQ(state.blockHeader, DefaultHeader(0));
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(FileBytes(state.headerFilePath), fileBefore);
    EXPECT_EQ(panel.blockNumber.Text(), "01");
    EXPECT_EQ(panel.downloadBlock.Text(), "01");
}

TEST_F(DownloadTest, ShowsEachReportsNameAndEmptiesItAtTheEnd)
{
    SetSmallSurvey(unit, 0);
    std::vector<std::string> shown;
    panel.reportFile.Watch([&] { shown.push_back(panel.reportFile.Text()); });
    Download();
    const std::string head = (state.reportFolder / (kSmallSurvey + "dat.dat")).string();
    const std::string data = (state.reportFolder / (kSmallSurvey + "num.dat")).string();
    EXPECT_THAT(shown, ElementsAre(head, data, data, ""));
    EXPECT_EQ(state.reportFileName, data);
}

TEST_F(DownloadTest, ShowsEveryPagesAddress)
{
    SetSmallSurvey(unit, 29);
    std::vector<std::string> shown;
    panel.readAddress.Watch([&] { shown.push_back(panel.readAddress.Text()); });
    Download("30");
    EXPECT_THAT(shown, ElementsAre("1D000", "1D010", "1D020", "1D030", "1D040", "1D050", "1D060",
                                   "1D070", "1D080", "1D090", "1D100", "1D110", "1D120"));
}

TEST_F(DownloadTest, GoesThroughItsStagesInOrder)
{
    SetSmallSurvey(unit, 0);
    LogIndicator();
    panel.downloadButton.Watch([&] {
        port.history.emplace_back(panel.downloadButton.Enabled() ? "button on" : "button off");
    });
    panel.drawing.Watch([&] { port.history.emplace_back("picture"); });
    panel.reportFile.Watch([&] {
        const auto& text = panel.reportFile.Text();
        port.history.push_back("file " + text.substr(text.size() < 7 ? 0 : text.size() - 7));
    });
    Download();
    std::vector<std::string> stages;
    for (const std::string& entry : port.history)
        if (entry[0] != '>' && entry[0] != '<') stages.push_back(entry);
    EXPECT_THAT(stages, ElementsAre("Label34 on", "Shape1 on", "button off", "picture", "port 1",
                                    "open", "file dat.dat", "file num.dat", "close", "button on",
                                    "file num.dat", "Label34 off", "Shape1 off", "file "));
}

TEST_F(DownloadTest, SettlesFiveTicksAfterTheWalkAndStopsTheTick)
{
    SetSmallSurvey(unit, 0);
    Milliseconds closed = -1;
    panel.downloadButton.Watch([&] {
        if (!panel.downloadButton.Enabled()) return;
        closed = world.Now();
        EXPECT_FALSE(port.IsOpen());
        EXPECT_FALSE(std::filesystem::exists(state.reportFolder / (kSmallSurvey + "num.dat")));
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
    });
    Download();
    EXPECT_EQ(closed, 26);       // thirteen pages of two answers
    EXPECT_EQ(world.Now(), 500); // the fifth tick of the walk's own period
    EXPECT_FALSE(world.TimerRuns());
}

TEST_F(DownloadTest, TheNextExchangeStartsTheTickAfresh)
{
    SetSmallSurvey(unit, 0);
    Download();
    world.PassTime(1000 - world.Now() + 70);
    unit.answerWake = [](int) { return ""; };
    boxes.Expect("Attention: TAR--VEX not connected", [&] { EXPECT_EQ(world.Now(), 1070 + 600); });
    Download();
}

struct BlockRow {
    std::string name;
    std::string text;
    std::string block; ///< the piece of the address, "07" being that of the command before
};

class DownloadBlockTest : public DownloadTest, public ::testing::WithParamInterface<BlockRow>
{
};

TEST_P(DownloadBlockTest, SetsTheAddressOrLeavesThatOfTheCommandBefore)
{
    Download("8");
    port.sent.clear();
    state.downloadBlock = 5; // the text alone counts
    Download(GetParam().text);
    ASSERT_EQ(port.sent.size(), 20U);
    EXPECT_EQ(port.sent[1], "a" + GetParam().block + "000\r");
    EXPECT_EQ(port.sent[19], "a" + GetParam().block + "090\r");
}

INSTANTIATE_TEST_SUITE_P(
    Table, DownloadBlockTest,
    ::testing::Values(BlockRow{"OneDigit", "1", "00"}, BlockRow{"TwoDigits", "01", "00"},
                      BlockRow{"Eleven", "11", "0A"}, BlockRow{"Sixteen", "16", "0F"},
                      BlockRow{"Seventeen", "17", "10"}, BlockRow{"TwentySix", "26", "19"},
                      BlockRow{"TwentySeven", "27", "1A"}, BlockRow{"Thirty", "30", "1D"},
                      BlockRow{"ThirtyOne", "31", "07"}, BlockRow{"Zero", "0", "07"},
                      BlockRow{"JustBelowOne", ".6", "07"}, BlockRow{"Empty", "", "07"},
                      BlockRow{"Letters", "xy", "07"}),
    RowName());

} // namespace
} // namespace tarvex::tests
