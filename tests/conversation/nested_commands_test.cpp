#include "blocks/read_block.h"
#include "download/block_download.h"
#include "support/logic_test.h"
#include "support/report_bytes.h"
#include "support/survey.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

/// Nothing guards a command against another one that the operator clicks during its waits.
class NestedCommandsTest : public LogicTest
{
protected:
    NestedCommandsTest()
    {
        std::filesystem::create_directory(folder / "reports");
        state.reportFolder = folder / "reports";
        SetSmallSurvey(unit, 0);
        unit.SetHeader(4, {"OTHER   ", "PLACE   ", "Q9  ", "2000", "1", "4", "-090", "07",
                           "010203  ", "040506  "});
    }

    void Read()
    {
        ClickLink([&](DeviceLink& link) { ReadBlock(panel, state, link, view); });
    }

    void Download()
    {
        ClickLink([&](DeviceLink& link) { BlockDownload(panel, state, link, view, world); });
    }

    void ReadBlockFiveAt(Milliseconds moment)
    {
        world.At(moment, [this] {
            panel.blockNumber.SetText("05");
            Read();
        });
    }

    /// The unit does not answer its n-th wake.
    void MissWake(int n)
    {
        unit.answerWake = [n](int wake) { return wake == n ? "" : "!"; };
    }

    /// The unit does not answer its n-th read frame.
    void MissRead(int n)
    {
        unit.answerRead = [n](int read, const std::string& reply) {
            return read == n ? std::string() : reply;
        };
    }

    /// The texts of `Text3` to `Text12`.
    std::vector<std::string> Shown() const
    {
        std::vector<std::string> texts = HeaderBoxTexts();
        texts.resize(11);
        return texts;
    }

    std::string Report(const std::string& name) const
    {
        return FileBytes(state.reportFolder / name);
    }
};

const std::vector<std::string> kBlank(11, "");
const std::vector<std::string> kBlockFive = {"OTHER   ", "PLACE   ", "Q9  ", "200",    "0",     "1",
                                             "4",        "-090",     "07",   "010203", "040506"};

TEST_F(NestedCommandsTest, ASilentUnitIsReportedByTheInnerReadAndThenByTheOuterOne)
{
    unit.answerWake = [](int) { return ""; };
    std::vector<Milliseconds> reported;
    const auto note = [&] { reported.push_back(world.Now()); };
    boxes.Expect("Attention: TAR--VEX not connected", note);
    boxes.Expect("Attention: TAR--VEX not connected", note);
    ReadBlockFiveAt(250);
    Read();
    // The inner wake starts the ticks again, and the outer one finds them run out.
    EXPECT_THAT(reported, ElementsAre(800, 800));
    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "> }", "close"));
    EXPECT_EQ(Shown()[0], "CLIENT 1");
    EXPECT_EQ(finishedHandlers, 2);
    EXPECT_LINK_AT_REST();
}

TEST_F(NestedCommandsTest, AReadInsideTheFirstWakeBlanksThePanelWhenTheOuterOneFallsThrough)
{
    MissWake(1);
    ReadBlockFiveAt(250);
    std::vector<std::string> shownByInner;
    world.At(270, [&] { shownByInner = Shown(); });
    Read();
    EXPECT_EQ(finishedHandlers, 2);
    EXPECT_EQ(unit.wakes, 11);
    EXPECT_EQ(unit.reads, 10);
    EXPECT_EQ(Shown(), kBlank);
    EXPECT_EQ(panel.readAddress.Text(), "04090");
    EXPECT_EQ(port.history.back(), "close");
    EXPECT_LINK_AT_REST();
}

TEST_F(NestedCommandsTest, TheInnerReadTakesTheBytesThatTheOuterOneCounts)
{
    unit.latency = 50;
    ReadBlockFiveAt(20);
    std::vector<std::string> clients;
    panel.header[Client].Watch([&] { clients.push_back(panel.header[Client].Text()); });
    Read();
    // The outer wake's answer starts the inner page, the inner wake's comes in front of it.
    EXPECT_THAT(clients, ElementsAre("", ""));
    EXPECT_EQ(port.history[5], "> a04000\r");
    EXPECT_EQ(port.history[6], "< !" + ScriptedUnit::PageReply("OTHER   "));
    EXPECT_EQ(Shown(), kBlank);
    EXPECT_EQ(finishedHandlers, 2);
}

TEST_F(NestedCommandsTest, AReadInsideALaterWakeLeavesTheOuterOneItsPagesSoFar)
{
    MissWake(4);
    ReadBlockFiveAt(30'000);
    Read();
    EXPECT_THAT(Shown(),
                ElementsAre("CLIENT0 ", "SITE0000", "T12 ", "", "", "", "", "", "", "", ""));
    EXPECT_EQ(panel.readAddress.Text(), "04090"); // the outer pages are passed over
    EXPECT_EQ(finishedHandlers, 2);
    EXPECT_LINK_AT_REST();
}

TEST_F(NestedCommandsTest, AReadInsideAReplyWaitLetsTheOuterOneRunThroughItsAddresses)
{
    MissRead(3);
    ReadBlockFiveAt(30'000);
    std::vector<std::string> addresses;
    panel.readAddress.Watch([&] {
        if (!port.IsOpen()) addresses.push_back(panel.readAddress.Text());
    });
    Read();
    EXPECT_THAT(Shown(), ElementsAre("CLIENT0 ", "SITE0000", "", "", "", "", "", "", "", "", ""));
    // Its last reply is still "!", and the block is that of the inner read.
    EXPECT_THAT(addresses,
                ElementsAre("04030", "04040", "04050", "04060", "04070", "04080", "04090"));
    EXPECT_EQ(port.sent.size(), 6U + 20U);
    EXPECT_EQ(finishedHandlers, 2);
}

TEST_F(NestedCommandsTest, AReadInsideTheDownloadsWakeCostsTheRowsFromThereOn)
{
    MissWake(12);
    ReadBlockFiveAt(30'000);
    Download();
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf({SmallSurveyRows()[0]}));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf({SmallSurveyRows()[0]}));
    EXPECT_EQ(Report(kSmallSurvey + "dat.dat"), SmallSurveyHeadReport());
    EXPECT_EQ(Shown(), kBlockFive);
    EXPECT_EQ(panel.readAddress.Text(), "04090");
    EXPECT_EQ(state.readAddrBlock, "04");
    EXPECT_EQ(finishedHandlers, 2);
    EXPECT_TRUE(panel.downloadButton.Enabled());
    EXPECT_LINK_AT_REST();
}

TEST_F(NestedCommandsTest, AReadInsideTheDownloadsReplyWaitLeavesRowsWithoutReadings)
{
    MissRead(12);
    ReadBlockFiveAt(30'000);
    Download();
    const std::vector<std::string> rows = {SmallSurveyRows()[0],
                                           RowRecord("001.0", {"", "", "", ""}),
                                           RowRecord("000.5", {"", "", "", ""})};
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(rows));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf(rows));
    EXPECT_EQ(panel.readAddress.Text(), "04020"); // block and bank of the inner read
    EXPECT_EQ(finishedHandlers, 2);
    EXPECT_LINK_AT_REST();
}

TEST_F(NestedCommandsTest, ADownloadInsideTheWalkLeavesNoTitleInTheRowsThatFollow)
{
    std::filesystem::create_directory(folder / "other");
    MissRead(12);
    world.At(30'000, [&] {
        state.reportFolder = folder / "other"; // or its work file would take the place of this one
        Download();
        EXPECT_EQ(state.dataRecord.text.Text(), TitleRecord().substr(0, 40));
    });
    Download();
    const std::vector<std::string> empty = {"", "", "", ""};
    EXPECT_EQ(
        FileBytes(folder / "reports" / "datiram.dat"),
        WorkFileOf({SmallSurveyRows()[0], RowRecord("001.0", empty), RowRecord("000.5", empty)}));
    EXPECT_EQ(finishedHandlers, 2);
}

TEST_F(NestedCommandsTest, AReadInsideTheDownloadsHeaderLeavesReportsOfWhatItHad)
{
    MissWake(3);
    ReadBlockFiveAt(30'000);
    Download();
    EXPECT_THAT(
        NamesIn(state.reportFolder),
        ElementsAre("CLIENT0 -SITE0000---dat.dat", "CLIENT0 -SITE0000---num.dat", "datiram.dat"));
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf({}));
    EXPECT_EQ(finishedHandlers, 2);
}

TEST_F(NestedCommandsTest, AHandlerThatClosesThePortEndsTheWaitWithoutAWord)
{
    MissRead(11);
    world.At(30'000, [&] { Click([&] { port.Close(); }); });
    Download();
    const std::vector<std::string> empty = {"", "", "", ""};
    EXPECT_EQ(Report("datiram.dat"),
              WorkFileOf({RowRecord("001.5", empty), RowRecord("001.0", empty),
                          RowRecord("000.5", empty)}));
    EXPECT_EQ(panel.readAddress.Text(), "00120");
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_EQ(finishedHandlers, 2);
}

TEST_F(NestedCommandsTest, ThePortChosenInAWaitIsThatOfTheNextCommand)
{
    unit.latency = 10;
    world.At(5, [&] { Click([&] { panel.portOptions.Select(2); }); });
    Read();
    EXPECT_EQ(port.OpenedPort(), 1);
    EXPECT_EQ(Shown()[0], "CLIENT0 ");
    Read();
    EXPECT_EQ(port.OpenedPort(), 3);
}

TEST_F(NestedCommandsTest, TheEndOfTheProgramInTheInnerWaitEndsBothWithNothingMoreSent)
{
    MissWake(4);
    ReadBlockFiveAt(10'000);
    unit.answerRead = [](int read, const std::string& reply) {
        return read <= 5 ? reply : std::string(); // the inner read waits in its third page
    };
    world.EndProgramAt(20'000);
    const std::vector<std::string> before = Shown();
    Read();
    EXPECT_EQ(world.Now(), 20'000);
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(port.sent.size(), 7U + 6U);
    EXPECT_EQ(port.sent.back(), "a04020\r");
    EXPECT_EQ(Shown(), before);
    EXPECT_LINK_WAITING();
}

TEST_F(NestedCommandsTest, TheEndOfTheProgramInsideADownloadMakesNoReportAndClosesNoPort)
{
    MissRead(12);
    MissWake(14);
    ReadBlockFiveAt(10'000);
    world.EndProgramAt(20'000);
    Download();
    EXPECT_THAT(NamesIn(state.reportFolder), ElementsAre(kSmallSurvey + "dat.dat", "datiram.dat"));
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf({SmallSurveyRows()[0]}));
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_LINK_WAITING();
}

TEST_F(NestedCommandsTest, AFailureThatAnInnerHandlerLetsGoUpEndsTheOuterOneToo)
{
    MissRead(2);
    world.At(5'000, [&] { Click([] { throw RunTimeFailure("Bad file name"); }); });
    Read();
    EXPECT_EQ(unhandledFailure, "Bad file name");
    EXPECT_EQ(world.end.Status(), 1);
    EXPECT_EQ(world.Now(), 5'000);
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(port.sent.back(), "a00010\r");
}

TEST_F(NestedCommandsTest, NoClickRunsAfterTheEnd)
{
    world.EndProgramAt(0);
    Read();
    Read();
    Click([] { FAIL() << "a handler ran after the end"; });
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_THAT(port.history, ::testing::IsEmpty());
}

TEST_F(NestedCommandsTest, AStoreInsideAReadKeepsItsOwnRule)
{
    MissRead(2);
    world.At(5'000, [&] {
        Click([&] {
            SkipOnError rule;
            panel.header[Client].SetText("TYPED");
            StorePanel(panel, state, 3);
        });
        port.Receive(ScriptedUnit::PageReply("SITE0000"));
    });
    Read();
    EXPECT_EQ(StoredHeader(3).cliente.View(), "TYPED   ");
    EXPECT_EQ(Shown()[0], "CLIENT0 ");
    EXPECT_EQ(Shown()[1], "SITE0000");
    EXPECT_EQ(finishedHandlers, 2);
}

} // namespace
} // namespace tarvex::tests
