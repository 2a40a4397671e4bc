#include "faults/fault_test.h"

#include <algorithm>
#include <sys/stat.h>
#include <thread>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// A manager whose disk, limits or folders do not let it write.
class StarvedManagerTest : public FaultTest
{
protected:
    StarvedManagerTest() { StartUnit(); }
    ~StarvedManagerTest() override { LetWrite(); }

    std::vector<std::string> ForADownload() const
    {
        return {"reports " + desk.reports.string(), "tab 2"};
    }

    /// The reports of a download that nothing happened to.
    Files CleanReports()
    {
        Manager manager(desk);
        manager.DoAll(ForADownload());
        manager.Do("click command3d1");
        EXPECT_EQ(manager.Close(), 0);
        auto files = FilesIn(desk.reports);
        for (const auto& [name, bytes] : files)
            std::filesystem::remove(desk.reports / name);
        return files;
    }

    /// The same without its port: the download goes on with an empty header. Its link leads to
    /// nothing; without one the manager would take a port of the machine that runs the test.
    Files PortlessReports()
    {
        const auto aside = desk.home / "port";
        std::filesystem::rename(desk.Port(), aside);
        std::filesystem::create_symlink(desk.home / "unplugged", desk.Port());
        auto files = CleanReports();
        std::filesystem::rename(aside, desk.Port());
        return files;
    }

    static std::size_t SizeOf(const Files& files)
    {
        std::size_t size = 0;
        for (const auto& [name, bytes] : files)
            size += bytes.size();
        return size;
    }

    void EmptyReports() const
    {
        for (const auto& name : NamesIn(desk.reports))
            std::filesystem::remove(desk.reports / name);
    }

    /// From now on neither folder can be written by anybody but the administrator.
    void ForbidWriting() const
    {
        for (const auto& folder : {desk.start, desk.reports})
            std::filesystem::permissions(folder, kReadable);
        ::chmod(unit->Terminal().c_str(), 0666);
        std::filesystem::permissions(desk.top.Path(), kReadable);
    }

    void LetWrite() const
    {
        std::error_code gone;
        for (const auto& folder : {desk.top.Path(), desk.start, desk.reports})
            std::filesystem::permissions(folder, std::filesystem::perms::owner_all, gone);
    }

    bool HasNamesOf(const Files& files) const
    {
        return std::ranges::any_of(NamesIn(desk.reports), [&](const std::string& name) {
            return name != "datiram.dat" && files.contains(name);
        });
    }

    // A port's lock file holds a process, a program, and the names of machine and start: where it
    // has no room the port is not opened.
    static constexpr std::uint32_t kRoomForALockFile = 256;
    static constexpr auto kReadable = static_cast<std::filesystem::perms>(0555);
};

TEST_F(StarvedManagerTest, KeepsWholeRecordsOfADownloadOnAFullDisk)
{
    const Files clean = CleanReports();
    const auto most = static_cast<std::uint32_t>(SizeOf(clean));
    for (int round = 0; round < Rounds(4); ++round) {
        const auto room = chance.Below(most);
        SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
        EmptyReports();
        Manager manager(desk);
        manager.DoAll(ForADownload());
        manager.Do("disk " + std::to_string(30 * 77 + room));
        EXPECT_THAT(manager.Do("click command3d1"), IsEmpty());
        EXPECT_EQ(manager.Close(), 0);
        Note("full disks");

        const Files files = FilesIn(desk.reports);
        EXPECT_LE(SizeOf(files), room);
        EXPECT_LE(room, SizeOf(files) + 3 * 113) << "there was room for more";
        EXPECT_THAT(OfReports(desk.reports, clean) + OfPlaces(desk, clean), IsEmpty());
        ExpectNextStartWorks();
    }
}

TEST_F(StarvedManagerTest, KeepsWholeRecordsOfADownloadAtAFileSizeLimit)
{
    const Files whole = CleanReports();
    const Files portless = PortlessReports();
    ASSERT_EQ(portless.size(), whole.size());
    ASSERT_NE(portless, whole);
    for (int round = 0; round < Rounds(4) + 1; ++round) {
        const std::uint32_t limit = round == 0 ? 79 : chance.Below(8'000);
        SCOPED_TRACE("files of at most " + std::to_string(limit) + " bytes");
        EmptyReports();
        Manager manager(desk, {.wrapper = {"prlimit", "--fsize=" + std::to_string(limit)}});
        manager.DoAll(ForADownload());
        EXPECT_THAT(manager.Do("click command3d1"), IsEmpty());
        EXPECT_EQ(manager.Close(), 0);
        Note("size limits");

        const bool opens = limit >= kRoomForALockFile || !HasNamesOf(portless);
        const Files& clean = opens ? whole : portless;
        EXPECT_THAT(OfReports(desk.reports, clean) + OfPlaces(desk, clean) +
                        OfHeaderTable(desk.HeaderTable(), DefaultTable(), DefaultTable()),
                    IsEmpty());
        ExpectNextStartWorks();
    }
}

TEST_F(StarvedManagerTest, StartsOnAFullDisk)
{
    for (int round = 0; round < Rounds(4); ++round) {
        const auto room = chance.Below(30 * 77);
        SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
        Manager manager(desk, {.steps = {"disk " + std::to_string(room)}});
        manager.Do("type Text3 stored");
        const auto boxes = manager.Do("click sscommand10");
        const bool refused = room < 77; // not one header fits
        EXPECT_EQ(boxes, refused ? std::vector<std::string>{"Run-time error: Disk full, writing " +
                                                            desk.HeaderTable().string()}
                                 : std::vector<std::string>());
        EXPECT_EQ(manager.Close(), refused ? 1 : 0);
        Note("full disks");

        auto stored = DefaultTable();
        stored[0] = WithClient("STORED", stored[0]);
        EXPECT_THAT(OfHeaderTable(desk.HeaderTable(), DefaultTable(), stored), IsEmpty());
        ExpectNextStartWorks();
    }
}

TEST_F(StarvedManagerTest, KeepsTheRowsOfTheSurveyOnAFullDisk)
{
    const std::vector<std::string> open = {"click Command8", "service Database Tar Vex",
                                           "form Form4"};
    Manager first(desk);
    first.DoAll(open);
    first.Do("click ssCommand2");
    EXPECT_EQ(first.Close(), 0);
    const auto rows = SurveyRows(desk.Database());
    const auto size = static_cast<std::uint32_t>(std::filesystem::file_size(desk.Database()));

    for (int round = 0; round < Rounds(4); ++round) {
        const auto room = chance.Below(2 * size);
        SCOPED_TRACE("room for " + std::to_string(room) + " bytes");
        std::filesystem::remove(desk.Database());
        Manager manager(desk);
        manager.DoAll(open);
        manager.Do("disk " + std::to_string(30 * 77 + room));
        manager.Do("click ssCommand2");
        EXPECT_EQ(manager.Close(), 0);
        Note("full disks");
        const auto left = SurveyRows(desk.Database());
        for (const auto& row : left)
            EXPECT_THAT(rows, ::testing::Contains(row));
        EXPECT_THAT(OfDatabase(desk.Database(), left, left) + OfPlaces(desk, {}), IsEmpty());

        Manager next(desk);
        next.DoAll(open);
        next.Do("click ssCommand2");
        EXPECT_EQ(next.Close(), 0);
        EXPECT_EQ(SurveyRows(desk.Database()).size(), rows.size());
        EXPECT_THAT(OfPlaces(desk, {}), IsEmpty());
        ExpectNextStartWorks();
    }
}

TEST_F(StarvedManagerTest, LeavesFoldersThatCannotBeWrittenAsTheyAre)
{
    const Files clean = CleanReports();
    for (const auto& [name, bytes] : clean)
        WriteFile(desk.reports / name, bytes);
    Manager manager(desk);
    manager.DoAll(ForADownload());
    ForbidWriting();
    const Files before = FilesIn(desk.start);
    manager.Do("ordinary");

    manager.Begin("click command3d1"); // there is no room for a work file: it waits to be closed
    EXPECT_FALSE(manager.Ends(3'000));
    EXPECT_EQ(manager.Close(), 0);
    Note("read-only folders");
    EXPECT_EQ(FilesIn(desk.reports), clean);
    EXPECT_EQ(FilesIn(desk.start), before);
    LetWrite();
    ExpectNextStartWorks();
}

TEST_F(StarvedManagerTest, StartsInAFolderThatCannotBeWritten)
{
    ForbidWriting();
    Manager manager(desk, {.steps = {"ordinary"}});
    EXPECT_EQ(manager.Text("Text3"), "CLIENT30");
    manager.Do("click Command3");
    EXPECT_EQ(manager.Text("Text3"), "DELVALLE");
    EXPECT_EQ(manager.Close(), 0);
    Note("read-only folders");
    EXPECT_THAT(NamesIn(desk.start), ElementsAre("com1"));
    LetWrite();
    ExpectNextStartWorks();
}

TEST_F(StarvedManagerTest, MakesNoReportsElsewhereWhenTheirFolderVanishes)
{
    const Files clean = CleanReports();
    for (int round = 0; round < Rounds(4); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        std::filesystem::create_directory(desk.reports);
        Manager manager(desk);
        manager.DoAll(ForADownload());
        manager.Begin("click command3d1");
        std::this_thread::sleep_for(Moment(std::chrono::milliseconds(500)));
        std::filesystem::remove_all(desk.reports);
        manager.Ends(2'000); // or waits without an end, for there is no work file to read
        EXPECT_EQ(manager.Close(), 0);
        Note("vanished folders");

        EXPECT_FALSE(std::filesystem::exists(desk.reports));
        std::filesystem::create_directory(desk.reports);
        EXPECT_THAT(OfPlaces(desk, {}), IsEmpty());
        ExpectNextStartWorks();
    }
}

TEST_F(StarvedManagerTest, MakesNoFilesElsewhereWhenItsFolderVanishes)
{
    Manager surveying(desk);
    surveying.DoAll({"service Database Tar Vex", "form Form4"});
    Manager storing(desk);
    const auto away = desk.top / "away";
    std::filesystem::rename(desk.start, away);
    const Files before = FilesIn(away);

    surveying.DoAll({"click ssCommand2", "form Form4", "click Command1"});
    EXPECT_EQ(surveying.Close(), 0);
    EXPECT_THAT(storing.Do("click sscommand10"), ElementsAre(StartsWith("Run-time error: ")));
    EXPECT_EQ(storing.Close(), 1);
    Note("vanished folders", 2);

    EXPECT_FALSE(std::filesystem::exists(desk.start));
    EXPECT_EQ(FilesIn(away), before);
    std::filesystem::rename(away, desk.start);
    EXPECT_THAT(OfPlaces(desk, {}), IsEmpty());
    ExpectNextStartWorks();
}

} // namespace
} // namespace tarvex::tests
