#include "running_unit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <fstream>

namespace tarvex::unit
{
namespace
{

namespace fs = std::filesystem;

class ReplayProgram : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "tarvex-replay-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
        std::ofstream(In("clock.line")) << "     0.000000  manager  }\n"
                                           "     0.003000  unit     !\n"
                                           "     0.003500  manager  H\\r\n"
                                           "     0.021000  unit     140423101530\\r\\n\n";
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string In(const std::string& name) const { return (folder_ / name).string(); }

    fs::path folder_;
};

TEST_F(ReplayProgram, AnswersAsTheRecordedUnit)
{
    RunningUnit unit({"--replay", In("clock.line"), "--fast", "--link", In("com1")});
    EXPECT_EQ(ManagersPort(In("com1")).Exchange("H\r", 14), "140423101530\r\n");
    unit.Signal(SIGTERM);
    EXPECT_EQ(unit.RestOfOutput(), "the record has been played\n");
    EXPECT_EQ(unit.ExitStatus(), 0);
}

TEST_F(ReplayProgram, PrintsWhatDiffersAndExitsWithAStatusOfItsOwn)
{
    RunningUnit unit({"--replay", In("clock.line"), "--fast"});
    EXPECT_EQ(ManagersPort(unit.Terminal()).Exchange("c\rH\r", 14), "140423101530\r\n");
    unit.Signal(SIGTERM);
    EXPECT_THAT(unit.RestOfOutput(), testing::HasSubstr("the manager says \"c\\r\"\n"));
    EXPECT_EQ(unit.ExitStatus(), 3);
}

TEST_F(ReplayProgram, RefusesARecordThatIsNone)
{
    std::ofstream(In("bad.line")) << "hello\n";
    for (const auto& record : {In("bad.line"), In("absent.line")}) {
        RunningUnit unit({"--replay", record});
        EXPECT_EQ(unit.Terminal(), "");
        EXPECT_NE(unit.ExitStatus(), 0);
    }
}

TEST_F(ReplayProgram, RefusesAMemoryTogetherWithARecord)
{
    RunningUnit unit({"--replay", In("clock.line"), "--demo"});
    EXPECT_EQ(unit.Terminal(), "");
    EXPECT_NE(unit.ExitStatus(), 0);
}

} // namespace
} // namespace tarvex::unit
