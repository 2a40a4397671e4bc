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
        panel.ssOption1.OnClick([this](int index) { state.ComPortNumber = index + 1; });
    }

    void Load()
    {
        LoadMainForm(panel, state, headers, [this] { return folder.Path(); });
    }

    /// Client of the panel's record, as it shows after a start that could not use its file.
    void ExpectTheLastDefaultBesideNumberOne() const
    {
        EXPECT_EQ(panel.Text2.Text(), "01");
        EXPECT_EQ(panel.Text3.Text(), "CLIENT30");
        EXPECT_EQ(state.CurrentBlock, 1);
        EXPECT_EQ(panel.ssOption1.Selected(), 0);
    }

    TemporaryFolder folder;
    std::filesystem::path table = folder / "intestazione";
    WorkingState state;
    Panel panel;
    HeaderStore headers{state, panel};
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
    EXPECT_EQ(panel.Text2.Text(), "01");
    EXPECT_EQ(panel.Text3.Text(), "CLIENT 1");
    EXPECT_EQ(panel.Text4.Text(), "SITE0000");
    EXPECT_EQ(panel.Text5.Text(), "T   ");
    EXPECT_EQ(panel.Text6.Text(), "000");
    EXPECT_EQ(panel.Text13.Text(), "0");
    EXPECT_EQ(panel.Text7.Text(), "0");
    EXPECT_EQ(panel.Text8.Text(), "2");
    EXPECT_EQ(panel.Text9.Text(), "+000");
    EXPECT_EQ(panel.Text10.Text(), "00");
    EXPECT_EQ(panel.Text11.Text(), "DDMMYY");
    EXPECT_EQ(panel.Text12.Text(), "hhmmss");
    EXPECT_EQ(panel.Text18.Text(), "+1.0000");
    EXPECT_EQ(panel.Text19.Text(), "+1.0000");
    EXPECT_EQ(panel.Text20.Text(), "+0.0000");
    EXPECT_EQ(panel.Text21.Text(), "+0.0000");
    EXPECT_EQ(panel.Text22.Text(), "0");
    EXPECT_EQ(state.BlockHeader, DefaultHeader(0));
}

TEST_F(StartUpTest, SetsTheWorkingStateAnew)
{
    state.CurrentBlock = 17;
    state.DownloadBlock = 9;
    state.ComPortNumber = 3;
    Load();
    EXPECT_EQ(state.CurrentBlock, 1);
    EXPECT_EQ(state.DownloadBlock, 1);
    EXPECT_EQ(state.HeaderFilePath, table);
    EXPECT_EQ(panel.Text15.Text(), table.string());
    EXPECT_EQ(panel.ssOption1.Selected(), 0);
    EXPECT_EQ(state.ComPortNumber, 1);
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
    watch(panel.sscommand9, "sscommand9");
    watch(panel.sscommand10, "sscommand10");
    watch(panel.sscommand6, "sscommand6");
    watch(panel.Command3, "Command3");
    watch(panel.Command6, "Command6");
    watch(panel.Command4, "Command4");
    watch(panel.Command7, "Command7");
    watch(panel.command3d1, "command3d1");
    Load();
    EXPECT_EQ(order, "sscommand9 sscommand10 sscommand6 Command3 Command6 Command4 Command7 ");
    EXPECT_FALSE(panel.command3d1.Enabled());
    EXPECT_FALSE(panel.Label34.Visible());
    EXPECT_FALSE(panel.Shape1.Visible());
}

TEST_F(StartUpTest, AHeaderFileThatDoesNotOpenGivesNoMessageAndShowsTheLastDefault)
{
    std::filesystem::create_directory(table);
    Load();
    ExpectTheLastDefaultBesideNumberOne();
    EXPECT_EQ(state.HeaderFilePath, table);
    EXPECT_TRUE(NamesIn(table).empty());
}

TEST_F(StartUpTest, AFolderThatMayNotBeWrittenShowsTheLastDefault)
{
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_read |
                                                    std::filesystem::perms::owner_exec |
                                                    std::filesystem::perms::others_read |
                                                    std::filesystem::perms::others_exec);
    EXPECT_TRUE(HoldsForAnyUser([&] {
        Load();
        return panel.Text2.Text() == "01" && panel.Text3.Text() == "CLIENT30";
    }));
    EXPECT_TRUE(NamesIn(folder.Path()).empty());
}

TEST_F(StartUpTest, ACurrentDirectoryThatIsGoneLeavesThePathEmpty)
{
    LoadMainForm(panel, state, headers,
                 []() -> std::filesystem::path { throw RunTimeFailure("Path not found"); });
    ExpectTheLastDefaultBesideNumberOne();
    EXPECT_EQ(state.HeaderFilePath, "");
    EXPECT_EQ(panel.Text15.Text(), "");
}

TEST_F(StartUpTest, TheSystemsCurrentDirectoryFailsOnceItIsGone)
{
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
    {
        const FullDisk full(200);
        Load();
    }
    EXPECT_EQ(FileBytes(table).size(), 154U);
    EXPECT_EQ(panel.Text3.Text(), "CLIENT 1");
}

TEST_F(StartUpTest, ShowsAPathInTheCodePage)
{
    const std::filesystem::path site = folder.Path() / std::filesystem::path(u8"città Ω");
    std::filesystem::create_directory(site);
    LoadMainForm(panel, state, headers, [&] { return site; });
    EXPECT_EQ(panel.Text15.Text(), folder.Path().string() + "/citt\xE0 ?/intestazione");
    EXPECT_THAT(NamesIn(site), ElementsAre("intestazione"));
}

} // namespace
} // namespace tarvex::tests
