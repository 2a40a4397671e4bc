#include "core/start_up.h"

#include "support/logic_test.h"
#include "support/system_limits.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

class StartUpTest : public ::testing::Test
{
protected:
    StartUpTest()
    {
        panel.portOptions.OnClick([this](int index) { state.comPortNumber = index + 1; });
    }

    void Load()
    {
        LoadMainForm(panel, state, [this] { return folder.Path(); });
    }

    /// Client of the panel's record, as it shows after a start that could not use its file.
    void ExpectTheLastDefaultBesideNumberOne() const
    {
        EXPECT_EQ(panel.blockNumber.Text(), "01");
        EXPECT_EQ(panel.header[Client].Text(), "CLIENT30");
        EXPECT_EQ(state.currentBlock, 1);
        EXPECT_EQ(panel.portOptions.Selected(), 0);
    }

    TemporaryFolder folder;
    std::filesystem::path table = folder / "intestazione";
    WorkingState state;
    ControlPanel panel;
};

TEST_F(StartUpTest, WritesThirtyDefaultRecords)
{
    Load();
    const std::string file = FileBytes(table);
    ASSERT_EQ(file.size(), 2310U);
    for (std::size_t index = 0; index < 30; ++index) {
        const std::string number = (index < 9 ? " " : "") + std::to_string(index + 1);
        EXPECT_EQ(file.substr(index * 77, 77),
                  "CLIENT" + number +
                      "SITE0000T   000002+00000DDMMYY  hhmmss  0+1.0000+1.0000+0.0000+0.0000");
        EXPECT_EQ(file[index * 77 + 26], '+');
    }
    EXPECT_EQ(file.substr(29 * 77, 8), "CLIENT30");
}

TEST_F(StartUpTest, DropsTheTableOfAFormerRunHoweverLong)
{
    WriteFile(table, std::string(5000, 'x'));
    Load();
    EXPECT_EQ(FileBytes(table).size(), 2310U);
    EXPECT_EQ(FileBytes(table).find('x'), std::string::npos);
}

TEST_F(StartUpTest, OverwritesTheTableThatAnotherInstanceHasOpen)
{
    Load();
    RecordFile other(sizeof(BlockHeader));
    other.Open(table);
    BlockHeader typed;
    typed.cliente = "TYPED";
    other.Put(1, typed);
    Load();
    other.Get(1, typed);
    EXPECT_EQ(typed, DefaultHeader(0));
}

TEST_F(StartUpTest, ShowsRecordOne)
{
    Load();
    EXPECT_EQ(panel.blockNumber.Text(), "01");
    EXPECT_EQ(panel.header[Client].Text(), "CLIENT 1");
    EXPECT_EQ(panel.header[Site].Text(), "SITE0000");
    EXPECT_EQ(panel.header[Tube].Text(), "T   ");
    EXPECT_EQ(panel.header[DepthMetres].Text(), "000");
    EXPECT_EQ(panel.header[DepthTenths].Text(), "0");
    EXPECT_EQ(panel.header[Step].Text(), "0");
    EXPECT_EQ(panel.header[Guides].Text(), "2");
    EXPECT_EQ(panel.header[North].Text(), "+000");
    EXPECT_EQ(panel.header[Readout].Text(), "00");
    EXPECT_EQ(panel.header[Date].Text(), "DDMMYY");
    EXPECT_EQ(panel.header[Time].Text(), "hhmmss");
    EXPECT_EQ(panel.calibration[Gain1].Text(), "+1.0000");
    EXPECT_EQ(panel.calibration[Gain2].Text(), "+1.0000");
    EXPECT_EQ(panel.calibration[Zero1].Text(), "+0.0000");
    EXPECT_EQ(panel.calibration[Zero2].Text(), "+0.0000");
    EXPECT_EQ(panel.calibration[Point].Text(), "0");
    EXPECT_EQ(state.blockHeader, DefaultHeader(0));
}

TEST_F(StartUpTest, SetsTheWorkingStateAgain)
{
    state.currentBlock = 17;
    state.downloadBlock = 9;
    state.comPortNumber = 3;
    Load();
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(state.downloadBlock, 1);
    EXPECT_EQ(state.headerFilePath, table);
    EXPECT_EQ(panel.headerFile.Text(), table.string());
    EXPECT_EQ(panel.portOptions.Selected(), 0);
    EXPECT_EQ(state.comPortNumber, 1);
}

TEST_F(StartUpTest, EnablesTheFileCommandGroupInItsOrder)
{
    std::string order;
    const auto watch = [&](Control& control, std::string name) {
        control.Disable();
        control.Watch([&order, &control, name = std::move(name)] {
            EXPECT_TRUE(control.Enabled());
            order += name + " ";
        });
    };
    watch(panel.previousRecordButton, "sscommand9");
    watch(panel.nextRecordButton, "sscommand10");
    watch(panel.setAllButton, "sscommand6");
    watch(panel.readBlockButton, "Command3");
    watch(panel.setBlockButton, "Command6");
    watch(panel.writeCalibrationButton, "Command4");
    watch(panel.resetBlockButton, "Command7");
    watch(panel.downloadButton, "command3d1");
    Load();
    EXPECT_EQ(order, "sscommand9 sscommand10 sscommand6 Command3 Command6 Command4 Command7 ");
    EXPECT_FALSE(panel.downloadButton.Enabled());
    EXPECT_FALSE(panel.waitIndicator.label.Visible());
    EXPECT_FALSE(panel.waitIndicator.ground.Visible());
}

TEST_F(StartUpTest, AHeaderFileThatDoesNotOpenGivesNoMessageAndShowsTheLastDefault)
{
    std::filesystem::create_directory(table);
    Load();
    ExpectTheLastDefaultBesideNumberOne();
    EXPECT_EQ(state.headerFilePath, table);
    EXPECT_TRUE(NamesIn(table).empty());
}

TEST_F(StartUpTest, AFolderThatMayNotBeWrittenShowsTheLastDefault)
{
    SKIP_WHERE_FOLDERS_HAVE_NO_MODE();
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_read |
                                                    std::filesystem::perms::owner_exec |
                                                    std::filesystem::perms::others_read |
                                                    std::filesystem::perms::others_exec);
    EXPECT_TRUE(HoldsForAnyUser([&] {
        Load();
        return panel.blockNumber.Text() == "01" && panel.header[Client].Text() == "CLIENT30";
    }));
    EXPECT_TRUE(NamesIn(folder.Path()).empty());
}

TEST_F(StartUpTest, ACurrentDirectoryThatIsGoneLeavesThePathEmpty)
{
    LoadMainForm(panel, state,
                 []() -> std::filesystem::path { throw RunTimeFailure("Path not found"); });
    ExpectTheLastDefaultBesideNumberOne();
    EXPECT_EQ(state.headerFilePath, "");
    EXPECT_EQ(panel.headerFile.Text(), "");
}

TEST_F(StartUpTest, TheSystemsCurrentDirectoryFailsOnceItIsGone)
{
    SKIP_WHERE_FOLDERS_HAVE_NO_MODE();
    EXPECT_EQ(SystemCurrentDirectory(), std::filesystem::current_path());
    const auto start = std::filesystem::current_path();
    std::filesystem::create_directory(folder / "gone");
    std::filesystem::current_path(folder / "gone");
    std::filesystem::remove(folder / "gone");
    EXPECT_THROW(SystemCurrentDirectory(), RunTimeFailure);
    std::filesystem::current_path(start);
}

TEST_F(StartUpTest, AFullDiskKeepsWholeRecordsOnly)
{
    SKIP_WHERE_NO_DISK_FILLS();
    {
        const FullDisk full(200);
        Load();
    }
    EXPECT_EQ(FileBytes(table).size(), 154U);
    EXPECT_EQ(panel.header[Client].Text(), "CLIENT 1");
}

TEST_F(StartUpTest, ShowsAPathInTheCodePage)
{
    const std::filesystem::path site = folder.Path() / std::filesystem::path(u8"città Ω");
    std::filesystem::create_directory(site);
    LoadMainForm(panel, state, [&] { return site; });
    EXPECT_EQ(panel.headerFile.Text(),
              (folder.Path() / "citt").string() + "\xE0 ?" + kSeparator + "intestazione");
    EXPECT_THAT(NamesIn(site), ElementsAre("intestazione"));
}

} // namespace
} // namespace tarvex::tests
