#include "survey/files/output_file.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex::survey
{
namespace
{

namespace fs = std::filesystem;
using ::testing::ElementsAre;

class OutputFileTest : public ::testing::Test
{
protected:
    /// A program that is killed when it has written a part of its export.
    void KillInTheWriting() const
    {
        const pid_t program = ::fork();
        if (program == 0) {
            WriteOutput(path, {}, [](const fs::path& part) {
                PutBytes(part, "ne");
                ::raise(SIGKILL);
            });
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(program, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
    }

    tests::TemporaryFolder folder;
    const fs::path path = folder / "survey.csv";
};

TEST_F(OutputFileTest, LeavesTheExportBeforeWhenItsProgramIsKilled)
{
    WriteText(path, {}, "old");
    KillInTheWriting();
    EXPECT_EQ(tests::FileBytes(path), "old");
}

TEST_F(OutputFileTest, IsWrittenBesideThePartOfAProgramThatWasKilled)
{
    KillInTheWriting();
    KillInTheWriting();
    WriteText(path, {}, "new");
    EXPECT_EQ(tests::FileBytes(path), "new");
    EXPECT_THAT(tests::NamesIn(folder.Path()),
                ElementsAre("survey.csv", "survey.csv.part0", "survey.csv.part1"));
}

} // namespace
} // namespace tarvex::survey
