#include "platform/qt_port_names.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace tarvex::tests
{
namespace
{

using platform::DescribePort;
using platform::DeviceAccess;
using platform::MachinePort;
using platform::PortChoice;
using platform::PortFacts;

const DeviceAccess kUsable{true, true, "dialout"};
const DeviceAccess kForbidden{true, false, "dialout"};
const MachinePort kNoProduct;

MachinePort Product(const char* product, const char* maker, const char* serialNumber)
{
    return {"ttyUSB0", "/dev/ttyUSB0", product, maker, serialNumber};
}

struct Row {
    const char* situation;
    PortFacts facts;
    std::string text;
};

class PortDescription : public ::testing::TestWithParam<Row>
{
};

TEST_P(PortDescription, TellsTheOperator)
{
    EXPECT_EQ(DescribePort(GetParam().facts), GetParam().text);
}

const PortChoice kAdapter{{}, "/dev/ttyUSB0"};
const PortChoice kLink{"com1", "/dev/pts/3"};

INSTANTIATE_TEST_SUITE_P(
    Rows, PortDescription,
    ::testing::Values(
        Row{"Adapter",
            {1, kAdapter, Product("FT232R USB UART", "FTDI", "A1B2"), kUsable, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, FT232R USB UART (FTDI), serial A1B2"},
        Row{"OnlyTheProduct",
            {1, kAdapter, Product("USB Serial", "", ""), kUsable, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, USB Serial"},
        Row{"OnlyTheMaker",
            {1, kAdapter, Product("", "FTDI", ""), kUsable, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, FTDI"},
        Row{"OnlyTheSerialNumber",
            {1, kAdapter, Product("", "", "A1B2"), kUsable, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, serial A1B2"},
        Row{"BuiltIn",
            {2, {{}, "/dev/ttyS0"}, kNoProduct, kUsable, "/srv/survey"},
            "Com 2: /dev/ttyS0"},
        Row{"Link", {1, kLink, kNoProduct, kUsable, "/srv/survey"}, "Com 1: com1 -> /dev/pts/3"},
        Row{"LinkToAdapter",
            {3, {"com3", "/dev/ttyUSB0"}, Product("FT232R USB UART", "", "A1B2"), kUsable, "/home"},
            "Com 3: com3 -> /dev/ttyUSB0, FT232R USB UART, serial A1B2"},
        Row{"LinkThatLeadsNowhere",
            {1, kLink, kNoProduct, {}, "/srv/survey"},
            "Com 1: com1 -> /dev/pts/3, which is not there. "
            "Plug in the adapter, or make the link anew."},
        Row{"NoDevice",
            {4, {}, kNoProduct, {}, "/srv/survey"},
            "Com 4: no device. Plug in the adapter, or make a link com4 in the folder "
            "/srv/survey."},
        Row{"NotPermitted",
            {1, kAdapter, Product("FT232R USB UART", "FTDI", ""), kForbidden, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, FT232R USB UART (FTDI), not permitted. Its users must be in the "
            "group dialout: run `sudo usermod -aG dialout $USER`, then log in again."},
        Row{"NotPermittedToAnyGroup",
            {1, kAdapter, kNoProduct, {true, false, {}}, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, not permitted. Only the device's owner may open it."}),
    [](const auto& row) { return row.param.situation; });

TEST(PortNames, DescribeWhatTheFinderFindsAtThatMoment)
{
    const TemporaryFolder folder;
    platform::QtPortNames names(platform::PortFinder(folder.Path(), [] {
        return std::vector<MachinePort>{{"ttyUSB0", "/dev/null", "FT232R USB UART", "FTDI", "A1"}};
    }));
    EXPECT_EQ(names.Describe(1), "Com 1: /dev/null, FT232R USB UART (FTDI), serial A1");
    EXPECT_THAT(names.Describe(2),
                ::testing::EndsWith("in the folder " + folder.Path().string() + "."));
    std::filesystem::create_symlink("/dev/null", folder / "com2");
    EXPECT_EQ(names.Describe(2), "Com 2: com2 -> /dev/null, FT232R USB UART (FTDI), serial A1");
}

} // namespace
} // namespace tarvex::tests
