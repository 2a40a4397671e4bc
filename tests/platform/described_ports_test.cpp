#include "platform/described_ports.h"

#include "platform/opening_watch.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;
using platform::MachinePort;
using ::testing::UnorderedElementsAre;

/// A machine as its system describes it: a folder a port, and a tree of the hardware.
class DescribedPort : public ::testing::Test
{
protected:
    DescribedPort() { fs::create_directory(devices); }

    /// A port with a node, whose hardware is at `place` in the tree.
    fs::path Describe(const std::string& name, const std::string& place)
    {
        fs::create_directories(hardware / place);
        fs::create_directories(terminals / name);
        fs::create_symlink(hardware / place, terminals / name / "device");
        WriteFile(devices / name, "");
        return terminals / name;
    }

    void DescribeAdapter(const std::string& place)
    {
        fs::create_directories(hardware / place);
        WriteFile(hardware / place / "idVendor", "0403\n");
        WriteFile(hardware / place / "product", "FT232R USB UART\n");
        WriteFile(hardware / place / "manufacturer", "FTDI\n");
        WriteFile(hardware / place / "serial", "A1B2\n");
    }

    std::vector<MachinePort> List() const { return platform::DescribedPorts(terminals, devices); }

    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const MachinePort& port : List())
            names.push_back(port.name);
        return names;
    }

    TemporaryFolder folder;
    const fs::path terminals = folder / "tty";
    const fs::path hardware = folder / "hardware";
    const fs::path devices = folder / "dev";
};

TEST_F(DescribedPort, IsBuiltInWhenItHasAChip)
{
    WriteFile(Describe("ttyS0", "platform/serial8250") / "type", "4\n");
    WriteFile(Describe("ttyS1", "platform/serial8250") / "type", "0\n");
    EXPECT_THAT(Names(), UnorderedElementsAre("ttyS0"));
    EXPECT_EQ(List().front().device, devices / "ttyS0");
    EXPECT_TRUE(List().front().hasNode);
    EXPECT_EQ(List().front().product, "");
}

TEST_F(DescribedPort, HasTheTextsOfItsAdapter)
{
    DescribeAdapter("pci/usb1/1-1");
    Describe("ttyUSB0", "pci/usb1/1-1/1-1:1.0/ttyUSB0");
    Describe("ttyACM0", "pci/usb1/1-1/1-1:1.1");
    Describe("ttyUSB1", "pci/usb1/1-2/1-2:1.0/ttyUSB1");
    EXPECT_THAT(Names(), UnorderedElementsAre("ttyUSB0", "ttyACM0", "ttyUSB1"));
    for (const MachinePort& port : List()) {
        const bool known = port.name != "ttyUSB1";
        EXPECT_EQ(port.product, known ? "FT232R USB UART" : "") << port.name;
        EXPECT_EQ(port.maker, known ? "FTDI" : "") << port.name;
        EXPECT_EQ(port.serialNumber, known ? "A1B2" : "") << port.name;
    }
}

TEST_F(DescribedPort, IsNothingWithoutHardware)
{
    fs::create_directories(terminals / "tty1");
    WriteFile(terminals / "notes", "");
    EXPECT_THAT(Names(), ::testing::IsEmpty());
    fs::remove_all(terminals);
    EXPECT_THAT(Names(), ::testing::IsEmpty());
}

TEST_F(DescribedPort, KnowsWhenItHasNoNode)
{
    Describe("ttyUSB0", "usb1/1-1/1-1:1.0");
    fs::remove(devices / "ttyUSB0");
    ASSERT_EQ(List().size(), 1U);
    EXPECT_FALSE(List().front().hasNode);
}

TEST_F(DescribedPort, IsNeverOpenedForTheList)
{
    WriteFile(Describe("ttyS0", "platform/serial8250") / "type", "4\n");
    Describe("ttyUSB0", "usb1/1-1/1-1:1.0");
    const OpeningWatch builtIn(devices / "ttyS0");
    const OpeningWatch adapter(devices / "ttyUSB0");
    EXPECT_EQ(List().size(), 2U);
    EXPECT_FALSE(builtIn.Opened());
    EXPECT_FALSE(adapter.Opened());
}

TEST(MachinePortList, OpensNoPortOfThisMachine)
{
    std::vector<std::unique_ptr<OpeningWatch>> watches;
    for (const MachinePort& port : platform::ListMachinePorts())
        if (port.hasNode) watches.push_back(std::make_unique<OpeningWatch>(port.device));
    platform::ListMachinePorts();
    EXPECT_FALSE(std::ranges::any_of(watches, [](const auto& watch) { return watch->Opened(); }));
}

} // namespace
} // namespace tarvex::tests
