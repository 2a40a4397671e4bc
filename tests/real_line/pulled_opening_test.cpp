#include "core/failure.h"
#include "platform/qt_serial_port.h"
#include "real_line/ftdi_adapter.h"
#include "real_line/open_files.h"
#include "real_line/real_line_test.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

namespace tarvex::tests
{
namespace
{

using ::testing::IsSubsetOf;

/// An adapter that goes away in the middle of an opening or a closing. The driver has a dozen or
/// two of requests to the chip in it; each of them is a moment to be tried.
class RealPulledOpeningTest : public RealLineTest
{
protected:
    RealPulledOpeningTest() { std::filesystem::create_symlink(adapter.Device(), folder / "com1"); }

    /// False when the opening has failed.
    bool OpenAndClose()
    {
        try {
            port.Open();
            port.Output("}");
            QCoreApplication::processEvents();
            port.Close();
            return true;
        } catch (const RunTimeFailure&) {
            return false;
        }
    }

    /// Opens and closes while the adapter is pulled at that request; false when there is none.
    bool IsPulledAt(int number)
    {
        adapter.PullAtRequest(number);
        const bool opened = OpenAndClose();
        EXPECT_TRUE(opened || !adapter.IsToBePulled()) << "refused without a pull";
        return !adapter.IsToBePulled();
    }

    FtdiAdapter adapter;
    platform::QtSerialPort port{platform::PortFinder(folder.Path())};
};

TEST_F(RealPulledOpeningTest, NothingOfItIsKeptAtWhicheverRequestItGoes)
{
    ASSERT_TRUE(OpenAndClose());
    const auto openFiles = OpenFiles();
    int number = 1;
    for (; IsPulledAt(number); ++number) {
        EXPECT_FALSE(HasPortOpen()) << "request " << number;
        EXPECT_THAT(OpenFiles(), IsSubsetOf(openFiles)) << "request " << number;
        adapter.Plug();
        ASSERT_EQ(adapter.Device(), "/dev/ttyUSB0") << "request " << number;
    }
    EXPECT_GT(number, 10);
}

} // namespace
} // namespace tarvex::tests
