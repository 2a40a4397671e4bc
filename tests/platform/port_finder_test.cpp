#include "platform/port_finder.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;
using platform::MachinePort;
using platform::PortChoice;
using platform::PortFinder;

/// A machine with two adapters, of which the second is listed first.
class PortFinding : public ::testing::Test
{
protected:
    PortChoice Find(int number) const
    {
        return PortFinder(folder.Path(),
                          [] {
                              return std::vector<MachinePort>{
                                  {"ttyUSB1", "/dev/ttyUSB1", {}, {}, {}},
                                  {"ttyUSB0", "/dev/ttyUSB0", {}, {}, {}}};
                          })
            .Find(number);
    }
    TemporaryFolder folder;
};

TEST_F(PortFinding, TakesTheNthDeviceWithoutALink)
{
    EXPECT_EQ(Find(1).device, "/dev/ttyUSB0");
    EXPECT_EQ(Find(2).device, "/dev/ttyUSB1");
    EXPECT_EQ(Find(1).link, "");
}

TEST_F(PortFinding, FindsNothingBeyondTheDevicesThereAre)
{
    EXPECT_EQ(Find(3).device, "");
    EXPECT_EQ(Find(0).device, "");
    EXPECT_EQ(Find(-1).device, "");
}

TEST_F(PortFinding, PrefersALinkAndFollowsItToItsEnd)
{
    fs::create_symlink("/dev/null", folder / "by-id");
    fs::create_symlink("by-id", folder / "com2");
    EXPECT_EQ(Find(2).device, "/dev/null");
    EXPECT_EQ(Find(2).link, "com2");
    EXPECT_EQ(Find(1).device, "/dev/ttyUSB0");
}

TEST_F(PortFinding, GivesANumberBeyondTheMachinesDevicesByALink)
{
    fs::create_symlink("/dev/null", folder / "com4");
    EXPECT_EQ(Find(4).device, "/dev/null");
}

TEST_F(PortFinding, NeverFallsBackFromALinkThatLeadsNowhere)
{
    fs::create_symlink("/dev/no-such-adapter", folder / "com1");
    EXPECT_EQ(Find(1).device, "/dev/no-such-adapter");
    EXPECT_EQ(Find(1).link, "com1");
}

TEST_F(PortFinding, NamesThePlaceOfARelativeLinkThatLeadsNowhere)
{
    fs::create_symlink("../unplugged", folder / "com1");
    EXPECT_EQ(Find(1).device, folder.Path().parent_path() / "unplugged");
}

TEST_F(PortFinding, SurvivesALinkToItself)
{
    fs::create_symlink("com1", folder / "com1");
    EXPECT_EQ(Find(1).device, folder / "com1");
}

TEST_F(PortFinding, PassesOverAPlainFileOrFolderOfThatName)
{
    WriteFile(folder / "com1", "");
    fs::create_directory(folder / "com2");
    EXPECT_EQ(Find(1).device, "/dev/ttyUSB0");
    EXPECT_EQ(Find(2).device, "/dev/ttyUSB1");
}

TEST_F(PortFinding, AsksAgainEachTime)
{
    EXPECT_EQ(Find(1).device, "/dev/ttyUSB0");
    fs::create_symlink("/dev/null", folder / "com1");
    EXPECT_EQ(Find(1).device, "/dev/null");
    fs::remove(folder / "com1");
    EXPECT_EQ(Find(1).device, "/dev/ttyUSB0");
}

TEST_F(PortFinding, KeepsTheStartFolderWhenTheCurrentOneChanges)
{
    const fs::path before = fs::current_path();
    fs::create_symlink("/dev/null", folder / "com1");
    fs::current_path(folder.Path());
    const PortFinder finder(".", [] { return std::vector<MachinePort>(); });
    fs::current_path(before);
    EXPECT_EQ(finder.Find(1).device, "/dev/null");
}

} // namespace
} // namespace tarvex::tests
