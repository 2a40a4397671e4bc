#include "program/program_test.h"

#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

const QString kNotConnected = QStringLiteral("Attention: TAR--VEX not connected");

double ProcessorSeconds()
{
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
           1e-6 * static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec);
}

class LineFaultTest : public ProgramTest
{
protected:
    /// Runs Read Block into a wait that never ends, closes the panel there, and gives the processor
    /// time that the manager spent from `from` milliseconds on, over half a second.
    double ProcessorTimeOfEndlessReadBlock(int from)
    {
        double before = 0;
        double after = 0;
        QTimer::singleShot(from, program->MainForm(), [&] { before = ProcessorSeconds(); });
        QTimer::singleShot(from + 500, program->MainForm(), [&] { after = ProcessorSeconds(); });
        CloseAfter(from + 600);
        AtPanel().Click("Command3");
        return after - before;
    }

    void ExpectCutOff()
    {
        EXPECT_TRUE(program->End().Ended());
        EXPECT_EQ(program->End().Status(), 0);
        EXPECT_EQ(AtPanel().Text("Text3"), "CLIENT 1");
        EXPECT_TRUE(boxes.texts.isEmpty());
    }
};

constexpr double kIdle = 0.1; // processor seconds in half a second; a busy loop takes all of it

TEST_F(LineFaultTest, ASilentUnitGivesTheBoxAndLeavesThePanel)
{
    Start({"--fault", "silent@wake1+"});

    AtPanel().Click("Command3");

    EXPECT_EQ(boxes.texts, QStringList{kNotConnected});
    EXPECT_EQ(AtPanel().Text("Text3"), "CLIENT 1");
    EXPECT_FALSE(AtPanel().IsShown("Label34"));
}

TEST_F(LineFaultTest, AUnitSwitchedOffInMidPageLeavesAQuietWaitThatClosingEnds)
{
    Start({"--fault", "short@page3:20", "--fault", "silent@wake4+"});

    EXPECT_LT(ProcessorTimeOfEndlessReadBlock(200), kIdle);

    ExpectCutOff();
}

TEST_F(LineFaultTest, AnAdapterPulledInMidPageLeavesAQuietWaitThatClosingEnds)
{
    Start({"--fault", "hangup@page3:20"});

    EXPECT_LT(ProcessorTimeOfEndlessReadBlock(200), kIdle);

    ExpectCutOff();
}

TEST_F(LineFaultTest, AnAdapterPulledWhileThePanelRestsIsAPortThatCannotBeOpened)
{
    Start();
    unit->Pull();

    AtPanel().Click("Command3");

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_EQ(AtPanel().Text("Text3"), "");
    EXPECT_FALSE(AtPanel().IsShown("Label34"));
}

TEST_F(LineFaultTest, AnAbsentPortBlanksTheFieldsWithoutAWord)
{
    StartAlone();

    AtPanel().Click("Command3");

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_EQ(AtPanel().Text("Text3"), "");
    EXPECT_EQ(AtPanel().Text("Text8"), "");
    EXPECT_FALSE(AtPanel().IsShown("Label34"));
}

TEST_F(LineFaultTest, APortHeldByAnotherProgramBlanksTheFieldsWithoutAWord)
{
    Start();
    const int other = open((folder / "com1").c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_GE(other, 0);
    ASSERT_EQ(flock(other, LOCK_EX | LOCK_NB), 0);

    AtPanel().Click("Command3");

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_EQ(AtPanel().Text("Text3"), "");
    close(other);

    AtPanel().Click("Command3");
    EXPECT_EQ(AtPanel().Text("Text3").size(), 8);
}

TEST_F(LineFaultTest, ALockFileKeepsThePortOnlyWhileItsProgramLives)
{
    if (access("/var/lock", W_OK) != 0) GTEST_SKIP() << "/var/lock may not be written";
    Start();
    const auto line = std::filesystem::read_symlink(folder / "com1");
    const auto lockFile =
        std::filesystem::path("/var/lock") / ("LCK..pts_" + line.filename().string());
    WriteFile(lockFile, std::to_string(getppid()) + "\n");

    AtPanel().Click("Command3");

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_EQ(AtPanel().Text("Text3"), "");
    ASSERT_TRUE(std::filesystem::exists(lockFile));
    const pid_t child = fork();
    if (child == 0) _exit(0);
    ASSERT_EQ(waitpid(child, nullptr, 0), child);
    WriteFile(lockFile, std::to_string(child) + " minicom root\n");

    AtPanel().Click("Command3");
    EXPECT_EQ(AtPanel().Text("Text3").size(), 8);
    EXPECT_FALSE(std::filesystem::exists(lockFile));
}

TEST_F(LineFaultTest, AKilledManagerLeavesThePortToTheNextOne)
{
    Start();
    const std::string port = (folder / "com1").string();
    const int onlooker = open(port.c_str(), O_RDWR | O_NOCTTY);
    const pid_t killed = fork();
    if (killed == 0) {
        const int line = open(port.c_str(), O_RDWR | O_NOCTTY);
        if (flock(line, LOCK_EX | LOCK_NB) == 0 && ioctl(line, TIOCEXCL) == 0) raise(SIGKILL);
        _exit(1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(killed, &status, 0), killed);
    ASSERT_TRUE(WIFSIGNALED(status));
    int exclusive = 1;
    for (int tries = 0; exclusive != 0 && tries < 500; ++tries) {
        QTest::qWait(10);
        ASSERT_EQ(ioctl(onlooker, TIOCGEXCL, &exclusive), 0);
    }
    close(onlooker);

    AtPanel().Click("Command3");

    EXPECT_EQ(AtPanel().Text("Text3").size(), 8);
}

TEST_F(LineFaultTest, APortWithoutPermissionBlanksTheFieldsWithoutAWord)
{
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can become a user without permission";
    Start();
    constexpr uid_t kNobody = 65534;
    ASSERT_EQ(chmod((folder / "com1").c_str(), 0600), 0);

    ASSERT_EQ(seteuid(kNobody), 0);
    AtPanel().Click("Command3");
    ASSERT_EQ(seteuid(0), 0);

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_EQ(AtPanel().Text("Text3"), "");
}

TEST_F(LineFaultTest, AWrongAnswerSkipsThatPageAlone)
{
    Start({"--fault", "wrong@wake2:?"});

    AtPanel().Click("Command3");

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_NE(AtPanel().Text("Text3"), "");
    EXPECT_EQ(AtPanel().Text("Text4"), "");
    EXPECT_NE(AtPanel().Text("Text5"), "");
}

TEST_F(LineFaultTest, ADoubledAnswerSkipsThatPageAlone)
{
    Start({"--fault", "double@wake1"});

    AtPanel().Click("Command3");

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_EQ(AtPanel().Text("Text3"), "");
    EXPECT_NE(AtPanel().Text("Text4"), "");
}

TEST_F(LineFaultTest, ALateAnswerToTheFirstWakeIsNoAnswer)
{
    Start({"--fault", "late@wake1:900"});

    AtPanel().Click("Command3");

    EXPECT_EQ(boxes.texts, QStringList{kNotConnected});
}

TEST_F(LineFaultTest, ALateAnswerToALaterWakeIsWaitedFor)
{
    Start({"--fault", "late@wake2:900"});

    AtPanel().Click("Command3");

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_NE(AtPanel().Text("Text4"), "");
}

TEST_F(LineFaultTest, AShortPageIsWaitedForWithoutEnd)
{
    Start({"--fault", "short@page2:49"});

    EXPECT_LT(ProcessorTimeOfEndlessReadBlock(200), kIdle);

    ExpectCutOff();
}

TEST_F(LineFaultTest, ALongPageIsTakenWholeOrCostsTheNextPage)
{
    Start({"--fault", "long@page1:3"});

    AtPanel().Click("Command3");

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_EQ(AtPanel().Text("Text3").size(), 8);
    EXPECT_EQ(AtPanel().Text("Text5").size(), 4);
}

} // namespace
} // namespace tarvex::tests
