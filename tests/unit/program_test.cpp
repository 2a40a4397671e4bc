#include "running_unit.h"

#include "unit/block_header.h"
#include "unit/memory_file.h"
#include "unit/pacer.h"
#include "unit/survey.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <termios.h>
#include <unistd.h>

namespace tarvex::unit
{
namespace
{

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

const std::string kHeaderFrame = "C0A000MILANO  CANTIER1T12 012514+09007230414101530\r";

class UnitProgram : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "tarvex-unit-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string In(const std::string& name) const { return (folder_ / name).string(); }

    fs::path folder_;
};

std::string ContentOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

TEST_F(UnitProgram, PrintsTheTerminalAndAnswersOnIt)
{
    const RunningUnit unit({"--fast"});
    EXPECT_THAT(unit.Terminal(), StartsWith("/dev/"));
    const ManagersPort port(unit.Terminal());
    EXPECT_EQ(port.Exchange("a0A000\r", 50),
              "43 4C 49 45 4E 54 31 31 00 00 00 00 00 00 00 00 \r\n");
}

TEST_F(UnitProgram, CarriesEveryByteValueBothWays)
{
    const RunningUnit unit({"--fast", "--log", "-"});
    const ManagersPort port(unit.Terminal());
    for (int high = 0; high < 256; high += 8) {
        auto frame = kHeaderFrame;
        for (int low = 0; low < 8; ++low)
            frame[6 + static_cast<std::size_t>(low)] = static_cast<char>(high + low);
        EXPECT_EQ(port.Exchange(frame, 0), "");
        Page page{};
        for (int low = 0; low < 8; ++low)
            page[static_cast<std::size_t>(low)] = static_cast<std::uint8_t>(high + low);
        std::ostringstream expected;
        expected << std::hex << std::uppercase;
        for (const auto byte : page)
            expected << (byte < 16 ? "0" : "") << int{byte} << " ";
        ASSERT_EQ(port.Exchange("a0A000\r", 50), expected.str() + "\r\n");
    }
}

TEST_F(UnitProgram, OutlivesTheManagersOpeningAndClosing)
{
    const RunningUnit unit({"--fast"});
    for (int i = 0; i < 20; ++i) {
        const ManagersPort port(unit.Terminal());
        ASSERT_EQ(port.Exchange("a1E000\r", 50),
                  "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 \r\n");
    }
}

TEST_F(UnitProgram, HandsItsBytesOverThroughAnAdapter)
{
    const RunningUnit unit({"--fast", "--adapter", "200"});
    const ManagersPort port(unit.Terminal());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(port.Exchange("H\r", 14).size(), 14U);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200))
        << "a whole timer lies between the wake's answer and the clock";
}

/// "S" while it sleeps, "R" while it takes a processor.
std::string StateOf(int process)
{
    const auto status = ContentOf("/proc/" + std::to_string(process) + "/stat");
    return status.substr(status.rfind(')') + 2, 1);
}

TEST_F(UnitProgram, KeepsThePaceOfTheLineWhileItIsAwakeAndSleepsAtRest)
{
    const RunningUnit unit({"--awake"});
    const ManagersPort port(unit.Terminal());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(port.Exchange("a0A000\r", 50),
              "43 4C 49 45 4E 54 31 31 00 00 00 00 00 00 00 00 \r\n");
    EXPECT_GE(std::chrono::steady_clock::now() - start, RunTime(Pace::Line, 59));
    const auto patience = start + std::chrono::seconds(10);
    while (StateOf(unit.Process()) != "S" && std::chrono::steady_clock::now() < patience)
        ::usleep(1'000);
    EXPECT_EQ(StateOf(unit.Process()), "S");
}

TEST_F(UnitProgram, RefusesAnAdapterWithoutALatency)
{
    for (const std::string latency : {"0", "256", "-1", "soon"}) {
        RunningUnit unit({"--fast", "--adapter", latency});
        EXPECT_EQ(unit.Terminal(), "") << latency;
        EXPECT_NE(unit.ExitStatus(), 0) << latency;
    }
}

TEST_F(UnitProgram, GivesARawLineOfNineThousandSixHundredBaudAndTwoStopBits)
{
    const RunningUnit unit({"--fast"});
    const int number = ::open(unit.Terminal().c_str(), O_RDWR | O_NOCTTY);
    termios settings{};
    ASSERT_EQ(::tcgetattr(number, &settings), 0);
    ::close(number);
    EXPECT_EQ(::cfgetispeed(&settings), static_cast<speed_t>(B9600));
    EXPECT_EQ(settings.c_cflag & CSTOPB, static_cast<tcflag_t>(CSTOPB));
    EXPECT_EQ(settings.c_lflag & static_cast<tcflag_t>(ICANON | ECHO | ISIG), 0U);
    EXPECT_EQ(settings.c_oflag & static_cast<tcflag_t>(OPOST), 0U);
}

TEST_F(UnitProgram, MakesItsLinkAndRemovesItOnEachRequestToEnd)
{
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        RunningUnit unit({"--fast", "--link", In("com1")});
        EXPECT_EQ(fs::read_symlink(In("com1")), unit.Terminal());
        EXPECT_EQ(ManagersPort(In("com1")).Exchange("H\r", 14).size(), 14U);
        unit.Signal(number);
        EXPECT_EQ(unit.ExitStatus(), 0);
        EXPECT_TRUE(fs::is_empty(folder_));
    }
}

TEST_F(UnitProgram, ReplacesALinkThatWasLeftOver)
{
    fs::create_symlink("/dev/pts/nowhere", In("com1"));
    {
        RunningUnit unit({"--fast", "--link", In("com1")});
        EXPECT_EQ(fs::read_symlink(In("com1")), unit.Terminal());
        unit.Signal(SIGKILL);
        EXPECT_EQ(unit.ExitStatus(), 128 + SIGKILL);
    }
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(In("com1"))));
    const RunningUnit unit({"--fast", "--link", In("com1")});
    EXPECT_EQ(fs::read_symlink(In("com1")), unit.Terminal());
}

/// It goes by the number of its process, and in a container that is the same at every start.
TEST_F(UnitProgram, ReplacesALinkThatWasLeftHalfMade)
{
    const std::string leaveAndStart =
        "ln -s /dev/pts/nowhere \"$1.$$\" && exec \"$0\" --fast --link \"$1\"";
    RunningUnit unit({"-c", leaveAndStart, TARVEX_UNIT_PROGRAM, In("com1")}, "sh");
    ASSERT_NE(unit.Terminal(), "");
    EXPECT_EQ(fs::read_symlink(In("com1")), unit.Terminal());
    unit.Signal(SIGTERM);
    EXPECT_EQ(unit.ExitStatus(), 0);
    EXPECT_TRUE(fs::is_empty(folder_));
}

TEST_F(UnitProgram, RefusesALinkInPlaceOfAFileOrOfAnotherLink)
{
    std::ofstream(In("file")) << "mine";
    fs::create_symlink(In("file"), In("adapter"));
    for (const auto* name : {"file", "adapter"}) {
        RunningUnit unit({"--link", In(name)});
        EXPECT_EQ(unit.Terminal(), "");
        EXPECT_EQ(unit.ExitStatus(), 1);
    }
    EXPECT_EQ(ContentOf(In("file")), "mine");
    EXPECT_EQ(fs::read_symlink(In("adapter")), In("file"));
}

TEST_F(UnitProgram, PrintsItsVersionAndStartsNothing)
{
    RunningUnit unit({"--link", In("com1"), "--version"});
    EXPECT_EQ(unit.Terminal(), "tarvex-unit " TARVEX_VERSION);
    EXPECT_EQ(unit.ExitStatus(), 0);
    EXPECT_FALSE(fs::is_symlink(In("com1")));
}

TEST_F(UnitProgram, LeavesALinkThatSomebodyElseHasPutInItsPlace)
{
    RunningUnit unit({"--fast", "--link", In("com1")});
    fs::remove(In("com1"));
    fs::create_symlink("/dev/null", In("com1"));
    unit.Signal(SIGTERM);
    EXPECT_EQ(unit.ExitStatus(), 0);
    EXPECT_EQ(fs::read_symlink(In("com1")), "/dev/null");
}

TEST_F(UnitProgram, KeepsWhatWasWrittenWhenItEnds)
{
    {
        RunningUnit unit({"--fast", "--memory", In("mem")});
        EXPECT_EQ(LoadMemory(In("mem")), BlankMemory());
        const ManagersPort port(unit.Terminal());
        port.Exchange(kHeaderFrame, 0);
        EXPECT_EQ(port.Exchange("H\r", 14).size(), 14U);
        unit.Signal(SIGTERM);
        EXPECT_EQ(unit.ExitStatus(), 0);
    }
    auto expected = BlankMemory();
    SpreadFields(expected, 0x0A000, kHeaderPlaces, kHeaderFrame.substr(6, 44));
    EXPECT_EQ(LoadMemory(In("mem")), expected);

    const RunningUnit again({"--fast", "--demo", "--memory", In("mem")});
    const ManagersPort port(again.Terminal());
    EXPECT_EQ(port.Exchange("a0A000\r", 50),
              "4D 49 4C 41 4E 4F 20 20 00 00 00 00 00 00 00 00 \r\n");
}

TEST_F(UnitProgram, KeepsEachWriteAtOnce)
{
    RunningUnit unit({"--fast", "--memory", In("mem")});
    const ManagersPort port(unit.Terminal());
    port.Exchange("b000F05\r", 0);
    EXPECT_EQ(port.Exchange("H\r", 14).size(), 14U);
    EXPECT_EQ(LoadMemory(In("mem")).Text(0x000F0, 1), "5");
}

TEST_F(UnitProgram, FillsANewMemoryWithTheDemoAndTheBlockAskedFor)
{
    const RunningUnit unit({"--fast", "--demo", "--memory", In("mem"), "--fill",
                            "4:depth=1.5,client=ROSSI,seed=7", "--fill", "5:guides=4"});
    const auto memory = LoadMemory(In("mem"));
    EXPECT_EQ(memory.Text(0, 0x3000), DemoMemory().Text(0, 0x3000));
    EXPECT_EQ(memory.Text(0x03000, 8), "ROSSI   ");
    EXPECT_EQ(memory.Text(0x03030, 4), "0015");
    EXPECT_NE(memory.Text(0x03120, 8), std::string(8, '\0'));
    EXPECT_EQ(memory.Text(0x04050, 1), "4");
}

TEST_F(UnitProgram, RefusesAMemoryFileOfAnotherLengthAndLeavesIt)
{
    std::ofstream(In("mem")) << "no memory";
    RunningUnit unit({"--memory", In("mem")});
    EXPECT_EQ(unit.ExitStatus(), 1);
    EXPECT_EQ(ContentOf(In("mem")), "no memory");
}

TEST_F(UnitProgram, RefusesOptionsThatItDoesNotUnderstand)
{
    const std::vector<std::vector<std::string>> mistakes{{"--nothing"},
                                                         {"--fault", "deaf@wake1"},
                                                         {"--fill", "31"},
                                                         {"--clock", "991332000000"},
                                                         {"--log", In("none/log")}};
    for (const auto& arguments : mistakes) {
        RunningUnit unit(arguments);
        EXPECT_EQ(unit.Terminal(), "");
        EXPECT_NE(unit.ExitStatus(), 0) << arguments.front();
    }
}

TEST_F(UnitProgram, StartsItsClockAtTheTimeGiven)
{
    const RunningUnit unit({"--fast", "--clock", "140423101530", "--clock-stopped"});
    EXPECT_EQ(ManagersPort(unit.Terminal()).Exchange("H\r", 14), "140423101530\r\n");
}

TEST_F(UnitProgram, AppliesEveryFaultItWasGiven)
{
    const RunningUnit unit({"--fast", "--fault", "wrong@wake1:?\\r,\\n", "--fault", "lower@page1+",
                            "--fault", "late@wake3:50"});
    const ManagersPort port(unit.Terminal());
    port.Send("}");
    EXPECT_EQ(port.Receive(4), "?\r,\n");
    EXPECT_EQ(port.Exchange("a00000\r", 50),
              "43 4c 49 45 4e 54 20 31 00 00 00 00 00 00 00 00 \r\n");
    EXPECT_EQ(port.Exchange("a00020\r", 50),
              "54 20 20 20 00 00 00 00 00 00 00 00 00 00 00 00 \r\n");
}

TEST_F(UnitProgram, HangsUpInMidPageAndEnds)
{
    RunningUnit unit(
        {"--fast", "--link", In("com1"), "--memory", In("mem"), "--fault", "hangup@page1:5"});
    const ManagersPort port(unit.Terminal());
    EXPECT_EQ(port.Exchange("a00000\r", 5), "43 4C");
    EXPECT_TRUE(port.IsHungUp());
    EXPECT_EQ(port.Receive(1), "");
    EXPECT_EQ(unit.ExitStatus(), 0);
    EXPECT_FALSE(fs::exists(fs::symlink_status(In("com1"))));
    EXPECT_EQ(LoadMemory(In("mem")), BlankMemory());
}

TEST_F(UnitProgram, WritesTheConversationOneFrameALine)
{
    RunningUnit unit({"--fast", "--log", In("log")});
    {
        const ManagersPort port(unit.Terminal());
        port.Exchange("a00020\r", 50);
        port.Exchange("b000F05\r", 0);
        EXPECT_EQ(port.Exchange("H\r", 14).size(), 14U);
    }
    unit.Signal(SIGTERM);
    EXPECT_EQ(unit.ExitStatus(), 0);
    std::istringstream log(ContentOf(In("log")));
    const std::vector<std::string> expected{
        "manager  }",          "unit     !",
        "manager  a00020\\r",  "unit     54 20 20 20 00 00 00 00 00 00 00 00 00 00 00 00 \\r\\n",
        "manager  }",          "unit     !",
        "manager  b000F05\\r", "manager  }",
        "unit     !",          "manager  H\\r"};
    std::string line;
    for (const auto& words : expected) {
        std::getline(log, line);
        EXPECT_THAT(line, testing::MatchesRegex(" *[0-9]+\\.[0-9]{6}  .*"));
        EXPECT_EQ(line.substr(15), words);
    }
}

TEST_F(UnitProgram, WritesTheConversationToTheStandardOutputAfterTheTerminal)
{
    RunningUnit unit({"--fast", "--log", "-"});
    EXPECT_THAT(unit.Terminal(), StartsWith("/dev/"));
    EXPECT_EQ(ManagersPort(unit.Terminal()).Exchange("H\r", 14).size(), 14U);
    unit.Signal(SIGTERM);
    EXPECT_THAT(unit.RestOfOutput(), HasSubstr("manager  H\\r\n"));
}

/// The seconds at the head of a line of the log, in microseconds.
std::int64_t MomentOf(const std::string& line)
{
    return std::stoll(line.substr(0, 6)) * 1'000'000 + std::stoll(line.substr(7, 6));
}

TEST_F(UnitProgram, PacesAnExchangeLikeALineOfNineThousandSixHundredBaud)
{
    RunningUnit unit({"--log", In("log")});
    EXPECT_EQ(ManagersPort(unit.Terminal()).Exchange("a00020\r", 50).size(), 50U);
    unit.Signal(SIGTERM);
    EXPECT_EQ(unit.ExitStatus(), 0);
    std::istringstream log(ContentOf(In("log")));
    std::string wake;
    std::string ready;
    std::string frame;
    std::string page;
    for (auto* line : {&wake, &ready, &frame, &page})
        std::getline(log, *line);
    EXPECT_EQ(MomentOf(ready) - MomentOf(wake), 1'146);
    EXPECT_GE(MomentOf(frame) - MomentOf(ready), 8'021);
    EXPECT_EQ(MomentOf(page) - MomentOf(frame), 57'292);
}

} // namespace
} // namespace tarvex::unit
