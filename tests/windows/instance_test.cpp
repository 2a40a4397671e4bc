#include "platform/windows_instance.h"

#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

using platform::SerialNumberIn;

TEST(WindowsInstance, HasTheSerialNumberOfAnAdapter)
{
    EXPECT_EQ(SerialNumberIn(R"(USB\VID_1A86&PID_7523\A1B2)"), "A1B2");
    EXPECT_EQ(SerialNumberIn(R"(FTDIBUS\VID_0403+PID_6001+A1B2A\0000)"), "A1B2");
}

TEST(WindowsInstance, HasNoneOfAnAdapterThatIsNamedByItsSocket)
{
    EXPECT_EQ(SerialNumberIn(R"(USB\VID_1A86&PID_7523\5&3753427A&0&2)"), "");
    EXPECT_EQ(SerialNumberIn(R"(FTDIBUS\VID_0403+PID_6001\0000)"), "");
    EXPECT_EQ(SerialNumberIn(R"(FTDIBUS\VID_0403+PID_6001+\0000)"), "");
    EXPECT_EQ(SerialNumberIn(R"(FTDIBUS\VID_0403+PID_6001+6&2A5EF36D&0&3\0000)"), "");
    EXPECT_EQ(SerialNumberIn(R"(ACPI\PNP0501\1)"), "");
    EXPECT_EQ(SerialNumberIn(""), "");
}

} // namespace
} // namespace tarvex::tests
