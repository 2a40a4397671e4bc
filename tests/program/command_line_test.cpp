#include "program/operator.h"
#include "support/temporary_folder.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

/// The program as a process of its own, in an empty folder.
class ManagerProcess : public ::testing::Test
{
protected:
    ManagerProcess()
    {
        environment_.insert("HOME", Text(home.Path()));
        process.setWorkingDirectory(Text(folder.Path()));
    }
    ~ManagerProcess() override
    {
        process.kill();
        process.waitForFinished();
    }

    static QString Text(const std::filesystem::path& path)
    {
        return QString::fromStdString(path.string());
    }

    /// Without any display: a program that asks for one is ended by the toolkit.
    void StartWithoutDisplay(const QStringList& arguments)
    {
        environment_.remove("DISPLAY");
        environment_.remove("WAYLAND_DISPLAY");
        Start("xcb", arguments);
    }

    void Start(const QString& platform, const QStringList& arguments)
    {
        environment_.insert("QT_QPA_PLATFORM", platform);
        process.setProcessEnvironment(environment_);
        process.start(TARVEX_MANAGER, arguments);
        ASSERT_TRUE(process.waitForStarted(60'000));
    }

    /// The exit status; -1 when the program is still there after a minute, or was killed.
    int ExitStatus()
    {
        if (!process.waitForFinished(60'000)) return -1;
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    bool Runs() const { return process.state() == QProcess::Running; }

    TemporaryFolder folder;
    TemporaryFolder home;
    QProcess process;

private:
    QProcessEnvironment environment_ = QProcessEnvironment::systemEnvironment();
};

TEST_F(ManagerProcess, HelpAnswersWithoutADisplayAndTouchesNoFile)
{
    StartWithoutDisplay({"--help"});
    EXPECT_EQ(ExitStatus(), 0);
    EXPECT_TRUE(process.readAllStandardOutput().startsWith("Usage: tarvex-manager "));
    EXPECT_THAT(NamesIn(folder.Path()), ::testing::IsEmpty());
}

TEST_F(ManagerProcess, VersionAnswersWithoutADisplayAndTouchesNoFile)
{
    StartWithoutDisplay({"--version"});
    EXPECT_EQ(ExitStatus(), 0);
    EXPECT_EQ(process.readAllStandardOutput().toStdString(),
              "Tar Vex Manager " TARVEX_VERSION "\n");
    EXPECT_THAT(NamesIn(folder.Path()), ::testing::IsEmpty());
}

class RefusedArguments : public ManagerProcess, public ::testing::WithParamInterface<QStringList>
{
};

TEST_P(RefusedArguments, GiveAUsageLineAndTouchNoFile)
{
    StartWithoutDisplay(GetParam());
    EXPECT_EQ(ExitStatus(), 2);
    EXPECT_TRUE(process.readAllStandardError().contains("Usage: tarvex-manager "));
    EXPECT_TRUE(process.readAllStandardOutput().isEmpty());
    EXPECT_THAT(NamesIn(folder.Path()), ::testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Table, RefusedArguments,
                         ::testing::Values(QStringList{"start"}, QStringList{"intestazione"},
                                           QStringList{"--verbose"}, QStringList{"-h"},
                                           QStringList{""}, QStringList{"--help=yes"},
                                           QStringList{"-platform"},
                                           QStringList{"-style", "fusion", "more"}));

TEST_F(ManagerProcess, AnOptionOfAnotherDesktopGivesAUsageLineAndTouchesNoFile)
{
    Start("offscreen", {"-geometry", "100x100"}); // an option of X11
    EXPECT_EQ(ExitStatus(), 2);
    EXPECT_TRUE(process.readAllStandardError().contains("Usage: tarvex-manager "));
    EXPECT_THAT(NamesIn(folder.Path()), ::testing::IsEmpty());
}

TEST_F(ManagerProcess, TheToolkitsOwnOptionsAreTaken)
{
    Start("xcb", {"-platform", "offscreen", "--style", "fusion", "-style=windows"});
    EXPECT_TRUE(WaitFor([&] { return !Runs() || std::filesystem::exists(folder / "intestazione"); },
                        60'000));
    EXPECT_TRUE(Runs());
}

TEST_F(ManagerProcess, StartsInAFolderThatIsGone)
{
    std::filesystem::create_directory(folder / "gone");
    process.setWorkingDirectory(Text(folder / "gone"));
    process.setChildProcessModifier([path = (folder / "gone").string()] { ::rmdir(path.c_str()); });
    Start("offscreen", {});
    EXPECT_FALSE(process.waitForFinished(4'000)) << process.readAllStandardError().toStdString();
    EXPECT_TRUE(Runs());
}

TEST_F(ManagerProcess, AFileSizeLimitCostsARecordAndNotTheProgram)
{
    process.setChildProcessModifier([] {
        const rlimit limit{1000, 1000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    });
    Start("offscreen", {});
    const auto table = folder / "intestazione";
    const auto wholeRecords = [&] {
        std::error_code absent;
        return std::filesystem::file_size(table, absent) == 12U * 77;
    };
    EXPECT_TRUE(WaitFor([&] { return !Runs() || wholeRecords(); }, 60'000));
    EXPECT_FALSE(process.waitForFinished(1'000)) << "after the record that does not fit";
    EXPECT_TRUE(wholeRecords());
}

} // namespace
} // namespace tarvex::tests
