#include "platform/machine_ports.h"

#include <gmock/gmock.h>

namespace tarvex::tests
{
namespace
{

using platform::InPortOrder;
using platform::MachinePort;

struct Row {
    const char* situation;
    std::vector<std::string> listed;
    std::vector<std::string> numbered;
};

class MachinePortOrder : public ::testing::TestWithParam<Row>
{
};

TEST_P(MachinePortOrder, NumbersTheDevices)
{
    std::vector<MachinePort> listed;
    for (const std::string& name : GetParam().listed)
        listed.push_back({name, "/dev/" + name, {}, {}, {}});
    std::vector<std::string> numbered;
    for (const MachinePort& port : InPortOrder(listed))
        numbered.push_back(port.name);
    EXPECT_EQ(numbered, GetParam().numbered);
}

INSTANTIATE_TEST_SUITE_P(Rows, MachinePortOrder,
                         ::testing::Values(Row{"Nothing", {}, {}},
                                           Row{"BuiltInBeforeAdapters",
                                               {"ttyACM0", "ttyUSB0", "ttyS0"},
                                               {"ttyS0", "ttyUSB0", "ttyACM0"}},
                                           Row{"ByNumberNotByLetters",
                                               {"ttyUSB10", "ttyUSB2", "ttyUSB1"},
                                               {"ttyUSB1", "ttyUSB2", "ttyUSB10"}},
                                           Row{"KindBeforeNumber",
                                               {"ttyACM0", "ttyUSB7", "ttyS3"},
                                               {"ttyS3", "ttyUSB7", "ttyACM0"}},
                                           Row{"OtherDevicesTakeNoNumber",
                                               {"rfcomm0", "ttySAC0", "ttyS", "ttyS1x", "tty1",
                                                "printk", "ttyS1"},
                                               {"ttyS1"}}),
                         [](const auto& row) { return row.param.situation; });

TEST(MachinePortOrder, LeavesOutADeviceWithoutANode)
{
    MachinePort ghost{"ttyUSB0", "/dev/ttyUSB0", {}, {}, {}};
    ghost.hasNode = false;
    const auto numbered = InPortOrder({ghost, {"ttyUSB1", "/dev/ttyUSB1", {}, {}, {}}});
    ASSERT_EQ(numbered.size(), 1U);
    EXPECT_EQ(numbered[0].name, "ttyUSB1");
}

TEST(MachinePortList, NamesADevicePathForEveryPort)
{
    for (const MachinePort& port : platform::ListMachinePorts()) {
        EXPECT_NE(port.name, "");
        EXPECT_TRUE(port.device.is_absolute()) << port.device;
    }
}

} // namespace
} // namespace tarvex::tests
