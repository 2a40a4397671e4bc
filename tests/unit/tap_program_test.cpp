#include "running_unit.h"

#include "unit/line_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <termios.h>
#include <unistd.h>

namespace tarvex::unit
{
namespace
{

namespace fs = std::filesystem;
using testing::ElementsAre;

constexpr const char* kPage = "43 4C 49 45 4E 54 31 31 00 00 00 00 00 00 00 00 \r\n";

/// A simulated unit on a line, and a tap between it and the manager.
class TapProgram : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "tarvex-tap-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
    }
    void TearDown() override
    {
        tap_.reset();
        unit_.reset();
        fs::remove_all(folder_);
    }

    void Start(std::vector<std::string> unitArguments = {"--fast"})
    {
        unit_ = std::make_unique<RunningUnit>(unitArguments);
        tap_ = std::make_unique<RunningUnit>(
            std::vector<std::string>{unit_->Terminal(), "--link", In("com1"), "--log", In("log")},
            TARVEX_TAP_PROGRAM);
    }

    void EndTap(int status = 0)
    {
        tap_->Signal(SIGTERM);
        EXPECT_EQ(tap_->ExitStatus(), status);
    }

    /// What the log has: bytes as they are, notes in parentheses.
    std::vector<std::string> Log() const
    {
        std::ifstream file(In("log"));
        std::vector<std::string> texts;
        for (const auto& line : ReadLog(file)) {
            const std::string speaker = line.speaker == Speaker::Unit ? "unit " : "manager ";
            texts.push_back(speaker + (line.note.empty() ? line.bytes : "(" + line.note + ")"));
        }
        return texts;
    }

    std::string In(const std::string& name) const { return (folder_ / name).string(); }

    fs::path folder_;
    std::unique_ptr<RunningUnit> unit_;
    std::unique_ptr<RunningUnit> tap_;
};

TEST_F(TapProgram, PassesBothDirectionsAndWritesThemDown)
{
    Start();
    {
        const ManagersPort port(In("com1"));
        EXPECT_EQ(port.Exchange("a0A000\r", 50), kPage);
    }
    EndTap();
    EXPECT_THAT(Log(), ElementsAre("manager (opens the port)", "manager (9600 8N2)", "manager }",
                                   "unit !", "manager a0A000\r", std::string("unit ") + kPage,
                                   "manager (closes the port)"));
    EXPECT_FALSE(fs::exists(fs::symlink_status(In("com1"))));
}

TEST_F(TapProgram, CarriesEveryByteValueBothWays)
{
    Start();
    const ManagersPort port(In("com1"));
    for (int high = 0; high < 256; high += 8) {
        std::string text;
        for (int low = 0; low < 8; ++low)
            text += static_cast<char>(high + low);
        EXPECT_EQ(port.Exchange("C0A000" + text + std::string(36, ' ') + "\r", 0), "");
        const auto answer = port.Exchange("a0A000\r", 50);
        for (int low = 0; low < 8; ++low)
            EXPECT_EQ(std::stoi(answer.substr(static_cast<std::size_t>(3 * low), 2), nullptr, 16),
                      high + low);
    }
}

TEST_F(TapProgram, CarriesEveryByteValueOfTheUnit)
{
    std::string bytes;
    for (int value = 1; value < 256; ++value)
        bytes += static_cast<char>(value);
    std::string escaped;
    for (int value = 1; value < 256; ++value) {
        const char* digits = "0123456789ABCDEF";
        escaped += std::string("\\x") + digits[value / 16] + digits[value % 16];
    }
    Start({"--fast", "--fault", "wrong@wake1:" + escaped});
    const ManagersPort port(In("com1"));
    port.Send("}");
    EXPECT_EQ(port.Receive(bytes.size()), bytes);
}

TEST_F(TapProgram, OutlivesTheManagersOpeningAndClosing)
{
    Start();
    for (int i = 0; i < 20; ++i) {
        const ManagersPort port(In("com1"));
        ASSERT_EQ(port.Exchange("a0A000\r", 50), kPage);
    }
    EndTap();
    EXPECT_EQ(std::ranges::count(Log(), std::string("unit ") + kPage), 20);
}

TEST_F(TapProgram, PassesTheManagersSettingsOn)
{
    Start();
    const ManagersPort port(In("com1"));
    const int number = ::open(In("com1").c_str(), O_RDWR | O_NOCTTY);
    termios settings{};
    ASSERT_EQ(::tcgetattr(number, &settings), 0);
    ::cfsetspeed(&settings, B19200);
    settings.c_cflag &= ~static_cast<tcflag_t>(CSTOPB);
    ASSERT_EQ(::tcsetattr(number, TCSANOW, &settings), 0);
    EXPECT_EQ(port.Exchange("a0A000\r", 50), kPage);

    const int device = ::open(unit_->Terminal().c_str(), O_RDWR | O_NOCTTY);
    if (device < 0) GTEST_SKIP() << "only the superuser may look at a port that is held";
    termios passed{};
    ASSERT_EQ(::tcgetattr(device, &passed), 0);
    EXPECT_EQ(::cfgetospeed(&passed), static_cast<speed_t>(B19200));
    EXPECT_EQ(passed.c_cflag & static_cast<tcflag_t>(CSTOPB), 0U);
    ::close(device);
    ::close(number);
    EndTap();
    EXPECT_THAT(Log(), testing::Contains("manager (19200 8N1)"));
}

TEST_F(TapProgram, PassesAHangUpOnAndEnds)
{
    Start({"--fast", "--fault", "hangup@page1:5"});
    const ManagersPort port(In("com1"));
    EXPECT_EQ(port.Exchange("a00000\r", 5), "43 4C");
    EXPECT_TRUE(port.IsHungUp());
    EXPECT_EQ(tap_->ExitStatus(), 0);
    EXPECT_THAT(Log(), testing::IsSupersetOf({"unit 43 4C", "unit (hang-up)"}));
}

TEST_F(TapProgram, GivesTheAdaptersSettingsBack)
{
    unit_ = std::make_unique<RunningUnit>(std::vector<std::string>{"--fast"});
    const int device = ::open(unit_->Terminal().c_str(), O_RDWR | O_NOCTTY);
    termios before{};
    ASSERT_EQ(::tcgetattr(device, &before), 0);
    tap_ = std::make_unique<RunningUnit>(
        std::vector<std::string>{unit_->Terminal(), "--log", In("log")}, TARVEX_TAP_PROGRAM);
    termios during{};
    ASSERT_EQ(::tcgetattr(device, &during), 0);
    EXPECT_NE(during.c_iflag, before.c_iflag);
    EndTap();
    termios after{};
    ASSERT_EQ(::tcgetattr(device, &after), 0);
    ::close(device);
    EXPECT_EQ(after.c_iflag, before.c_iflag);
    EXPECT_EQ(after.c_cflag, before.c_cflag);
}

TEST_F(TapProgram, RefusesAnAdapterThatIsAbsentOrHeld)
{
    Start();
    for (const std::string& device : {In("absent"), unit_->Terminal()}) {
        RunningUnit second({device, "--log", In("other")}, TARVEX_TAP_PROGRAM);
        EXPECT_EQ(second.Terminal(), "");
        EXPECT_EQ(second.ExitStatus(), 1);
    }
}

TEST_F(TapProgram, RefusesOptionsThatItDoesNotUnderstand)
{
    for (const auto& arguments :
         std::vector<std::vector<std::string>>{{}, {"device"}, {"device", "--nothing"}}) {
        RunningUnit tap(arguments, TARVEX_TAP_PROGRAM);
        EXPECT_EQ(tap.Terminal(), "");
        EXPECT_NE(tap.ExitStatus(), 0);
    }
}

} // namespace
} // namespace tarvex::unit
