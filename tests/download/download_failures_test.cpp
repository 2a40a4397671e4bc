#include "download_test_fixture.h"

#include "support/system_limits.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(DownloadTest, ASilentUnitIsReportedAndNoFileIsTouched)
{
    WriteFile(state.reportFolder / "datiram.dat", "of a former run");
    unit.answerWake = [](int) { return ""; };
    boxes.Expect("Attention: TAR--VEX not connected", [&] { EXPECT_LINK_WAITING(); });
    LogIndicator();
    Download();
    EXPECT_THAT(port.history, ElementsAre("Label34 on", "Shape1 on", "port 1", "open", "> }",
                                          "close", "Label34 off", "Shape1 off"));
    EXPECT_THAT(Reports(), ElementsAre("datiram.dat"));
    EXPECT_EQ(Report("datiram.dat"), "of a former run");
    EXPECT_FALSE(panel.downloadButton.Enabled());
    EXPECT_EQ(panel.reportFile.Text() + panel.readAddress.Text(), "");
    EXPECT_TRUE(world.TimerRuns());
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(DownloadTest, AFirstAnswerOtherThanReadyCostsTheClientOnly)
{
    SetSmallSurvey(unit, 0);
    unit.answerWake = [](int wake) { return wake == 1 ? "?" : "!"; };
    Download();
    EXPECT_THAT(Reports(), ElementsAre("-SITE0000-T12 -03-dat.dat", "-SITE0000-T12 -03-num.dat",
                                       "datiram.dat"));
    EXPECT_EQ(Report("-SITE0000-T12 -03-dat.dat").substr(0, 42), Padded("Client: ;", 40) + "\r ");
    EXPECT_EQ(Report("-SITE0000-T12 -03-num.dat"), DataReportOf(SmallSurveyRows()));
    EXPECT_EQ(boxes.shown, 0);
}

struct SkippedRow {
    std::string name;
    int wake;
    std::string reports; ///< what the reports' names begin with
    std::size_t line;    ///< of the head report, from 0
    std::string text;
    std::size_t rows;
};

class SkippedHeaderPageTest : public DownloadTest, public ::testing::WithParamInterface<SkippedRow>
{
};

TEST_P(SkippedHeaderPageTest, LeavesItsValueEmptyInTheNameAndTheReport)
{
    SetSmallSurvey(unit, 0);
    unit.answerWake = [](int wake) { return wake == GetParam().wake ? "!!" : "!"; };
    Download();
    EXPECT_THAT(Reports(), ElementsAre(GetParam().reports + "dat.dat",
                                       GetParam().reports + "num.dat", "datiram.dat"));
    std::string expected = SmallSurveyHeadReport();
    expected.replace(GetParam().line * 84, 40, Padded(GetParam().text, 40));
    EXPECT_EQ(Report(GetParam().reports + "dat.dat"), expected);
    EXPECT_EQ(DepthsOfRows().size(), GetParam().rows);
    EXPECT_LINK_AT_REST();
}

INSTANTIATE_TEST_SUITE_P(
    Table, SkippedHeaderPageTest,
    ::testing::Values(SkippedRow{"Client", 1, "-SITE0000-T12 -03-", 0, "Client: ;", 3},
                      SkippedRow{"Site", 2, "CLIENT0 --T12 -03-", 1, "Site:;", 3},
                      SkippedRow{"Tube", 3, "CLIENT0 -SITE0000--03-", 2, "Tube no: ;", 3},
                      SkippedRow{"Depth", 4, kSmallSurvey, 3, "Depth:;.", 0},
                      SkippedRow{"Step", 5, kSmallSurvey, 4, "Step:;", 2},
                      SkippedRow{"Guides", 6, kSmallSurvey, 5, "Guides no: ;", 3},
                      SkippedRow{"North", 7, kSmallSurvey, 6, "North:;", 3},
                      SkippedRow{"Readout", 8, "CLIENT0 -SITE0000-T12 --", 7, "Readout no:;", 3},
                      SkippedRow{"Date", 9, kSmallSurvey, 8, "Date: ;//", 3},
                      SkippedRow{"Time", 10, kSmallSurvey, 9, "Time:;::", 3}),
    RowName());

TEST_F(DownloadTest, SilenceInTheHeaderLeavesTheReportsOfTheFormerRun)
{
    SetSmallSurvey(unit, 0);
    Download();
    const std::string work = Report("datiram.dat");
    unit.wakes = 0;
    unit.answerWake = [](int wake) { return wake < 10 ? "!" : ""; };
    world.EndProgramAt(1'000'000);
    panel.downloadButton.Enable();
    Download();
    EXPECT_EQ(finishedHandlers, 1);
    EXPECT_THAT(Reports(),
                ElementsAre(kSmallSurvey + "dat.dat", kSmallSurvey + "num.dat", "datiram.dat"));
    EXPECT_EQ(Report("datiram.dat"), work);
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf(SmallSurveyRows()));
    EXPECT_LINK_WAITING();
    EXPECT_FALSE(panel.downloadButton.Enabled());
}

TEST_F(DownloadTest, SilenceInTheWalkLeavesTheHeadReportAndTheRowsSoFar)
{
    SetSmallSurvey(unit, 0);
    Download(); // so that there are reports to be replaced
    unit.wakes = 0;
    unit.answerWake = [](int wake) { return wake < 13 ? "!" : ""; };
    world.EndProgramAt(1'000'000);
    Download();
    EXPECT_THAT(Reports(), ElementsAre(kSmallSurvey + "dat.dat", "datiram.dat"));
    EXPECT_EQ(Report(kSmallSurvey + "dat.dat"), SmallSurveyHeadReport());
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf({SmallSurveyRows()[0], SmallSurveyRows()[1]}));
    EXPECT_EQ(finishedHandlers, 1);
    EXPECT_LINK_WAITING();
    EXPECT_FALSE(panel.downloadButton.Enabled());
    EXPECT_EQ(panel.reportFile.Text(), (state.reportFolder / (kSmallSurvey + "num.dat")).string());
}

TEST_F(DownloadTest, APortThatCannotBeOpenedWritesEmptyReportsWithoutAWord)
{
    port.refused = {1};
    Download();
    EXPECT_THAT(Reports(), ElementsAre("----dat.dat", "----num.dat", "datiram.dat"));
    EXPECT_EQ(Report("----dat.dat"),
              HeadReportOf({"Client: ;", "Site:;", "Tube no: ;", "Depth:;.", "Step:;",
                            "Guides no: ;", "North:;", "Readout no:;", "Date: ;//", "Time:;::"}));
    EXPECT_EQ(Report("----dat.dat").size(), 798U);
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf({}));
    EXPECT_EQ(Report("----num.dat"), DataReportOf({}));
    EXPECT_THAT(port.history, ElementsAre("port 1"));
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_EQ(panel.readAddress.Text(), "");
    EXPECT_TRUE(panel.downloadButton.Enabled());
    EXPECT_EQ(world.Now(), 500); // only the settling
    EXPECT_LINK_AT_REST();
}

/// The run has walked all pages and waits in the making of the data report.
#define EXPECT_ENDLESS_WAIT_BEHIND_THE_WALK()                                                      \
    do {                                                                                           \
        EXPECT_EQ(unit.reads, 13);                                                                 \
        EXPECT_EQ(world.Now(), 1'000'000);                                                         \
        EXPECT_EQ(finishedHandlers, 0);                                                            \
        EXPECT_FALSE(port.IsOpen());                                                               \
        EXPECT_TRUE(panel.waitIndicator.label.Visible());                                          \
        EXPECT_TRUE(panel.waitIndicator.ground.Visible());                                         \
        EXPECT_TRUE(panel.downloadButton.Enabled());                                               \
        EXPECT_FALSE(world.TimerRuns());                                                           \
        EXPECT_EQ(boxes.shown, 0);                                                                 \
    } while (false)

TEST_F(DownloadTest, WithoutItsFolderItReadsTheUnitAndThenWaitsForEver)
{
    SetSmallSurvey(unit, 0);
    state.reportFolder = folder / "missing";
    world.EndProgramAt(1'000'000);
    Download();
    EXPECT_ENDLESS_WAIT_BEHIND_THE_WALK();
    EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("intestazione", "reports"));
}

TEST_F(DownloadTest, AFolderThatMayNotBeWrittenEndsInTheSameWait)
{
    SKIP_WHERE_FOLDERS_HAVE_NO_MODE();
    SetSmallSurvey(unit, 0);
    std::filesystem::permissions(state.reportFolder, std::filesystem::perms::owner_read |
                                                         std::filesystem::perms::owner_exec |
                                                         std::filesystem::perms::others_read |
                                                         std::filesystem::perms::others_exec);
    world.EndProgramAt(1'000'000);
    EXPECT_TRUE(HoldsForAnyUser([&] {
        Download();
        EXPECT_ENDLESS_WAIT_BEHIND_THE_WALK();
        return !HasFailure();
    }));
    EXPECT_THAT(Reports(), IsEmpty());
}

TEST_F(DownloadTest, AFolderInPlaceOfTheWorkFileLeavesAnEmptyDataReportAndTheSameWait)
{
    SetSmallSurvey(unit, 0);
    std::filesystem::create_directory(state.reportFolder / "datiram.dat");
    world.EndProgramAt(1'000'000);
    Download();
    EXPECT_ENDLESS_WAIT_BEHIND_THE_WALK();
    EXPECT_EQ(Report(kSmallSurvey + "dat.dat"), SmallSurveyHeadReport());
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), "");
    EXPECT_TRUE(std::filesystem::is_directory(state.reportFolder / "datiram.dat"));
}

TEST_F(DownloadTest, OtherCommandsRunInsideTheEndlessWait)
{
    state.reportFolder = folder / "missing";
    world.At(10'000, [&] { Click([&] { panel.header[Client].SetText("TYPED"); }); });
    world.EndProgramAt(20'000);
    Download();
    EXPECT_EQ(panel.header[Client].Text(), "TYPED");
    EXPECT_EQ(finishedHandlers, 1);
}

struct FullDiskRow {
    std::string name;
    std::size_t room;
    std::size_t head;
    std::size_t work;
    std::size_t data;
};

class FullDiskDownloadTest : public DownloadTest, public ::testing::WithParamInterface<FullDiskRow>
{
};

TEST_P(FullDiskDownloadTest, WritesWholeRecordsAndRunsToItsEnd)
{
    SKIP_WHERE_NO_DISK_FILLS();
    SetSmallSurvey(unit, 0);
    {
        const FullDisk full(GetParam().room);
        Download();
    }
    const std::string head = Report(kSmallSurvey + "dat.dat");
    EXPECT_EQ(head, SmallSurveyHeadReport().substr(0, GetParam().head));
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(SmallSurveyRows()).substr(0, GetParam().work));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat").size(), GetParam().data);
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_EQ(finishedHandlers, 1);
    EXPECT_LINK_AT_REST();
}

INSTANTIATE_TEST_SUITE_P(Table, FullDiskDownloadTest,
                         ::testing::Values(FullDiskRow{"NoRoom", 0, 0, 0, 0},
                                           FullDiskRow{"HalfARecord", 50, 42, 0, 0},
                                           FullDiskRow{"TitleOnly", 200, 168, 113, 113},
                                           FullDiskRow{"OneRow", 400, 378, 339, 339},
                                           FullDiskRow{"HeadCutShort", 700, 672, 565, 678},
                                           FullDiskRow{"DataCutShort", 790, 756, 565, 678},
                                           FullDiskRow{"JustEnough", 798, 798, 565, 791}),
                         RowName());

TEST_F(DownloadTest, TheEndOfTheProgramInTheWalkWritesAndSendsNothingMore)
{
    SetSmallSurvey(unit, 0);
    unit.onWake = [&](int wake) {
        if (wake == 12) world.EndProgramAt(world.Now());
    };
    Download();
    EXPECT_EQ(port.sent.size(), 23U); // eleven pages and the twelfth wake
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf({SmallSurveyRows()[0]}));
    EXPECT_THAT(Reports(), ElementsAre(kSmallSurvey + "dat.dat", "datiram.dat"));
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_LINK_WAITING();
}

TEST_F(DownloadTest, TheEndOfTheProgramInTheSettlingMakesNoDataReport)
{
    SetSmallSurvey(unit, 0);
    world.EndProgramAt(499);
    Download();
    EXPECT_THAT(Reports(), ElementsAre(kSmallSurvey + "dat.dat", "datiram.dat"));
    EXPECT_FALSE(port.IsOpen());
    EXPECT_TRUE(panel.downloadButton.Enabled());
    EXPECT_TRUE(panel.waitIndicator.label.Visible());
}

} // namespace
} // namespace tarvex::tests
