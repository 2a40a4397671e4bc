#include "faults/fault_test.h"
#include "faults/watched_process.h"

#include <thread>

namespace tarvex::tests
{
namespace
{

using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

/// Two managers that get into each other's way.
class TwoManagersTest : public FaultTest
{
protected:
    TwoManagersTest() { StartUnit(); }

    /// A second unit, at "com2".
    unit::RunningUnit OtherUnit() const
    {
        return unit::RunningUnit({"--demo", "--fast", "--link", (desk.start / "com2").string()});
    }

    /// Waits until the manager has its port open.
    static bool OpensItsPort(const Manager& manager)
    {
        const WatchedProcess process(manager.Process());
        for (int tries = 0; process.Terminals().empty() && tries < 2'000; ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        return !process.Terminals().empty();
    }
};

TEST_F(TwoManagersTest, KeepWholeHeadersInOneFolder)
{
    const auto other = OtherUnit();
    for (int round = 0; round < Rounds(3); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        Manager one(desk);
        Manager two(desk);
        two.DoAll({"tab 3", "click ssOption1_1", "tab 1"});
        one.Begin("click Command8");
        std::this_thread::sleep_for(Moment(std::chrono::milliseconds(300)));
        EXPECT_THAT(two.Do("click Command8"), IsEmpty());
        EXPECT_TRUE(one.Ends(ChildProgram::kPatience));
        Note("pairs");

        EXPECT_THAT(OfHeaderTable(desk.HeaderTable(), DemoTable(), DemoTable()) +
                        OfPlaces(desk, {}),
                    IsEmpty());
        EXPECT_EQ(one.Close(), 0);
        EXPECT_EQ(two.Close(), 0);
        ExpectNextStartWorks();
    }
}

TEST_F(TwoManagersTest, MakeOneRowATubeInOneDatabase)
{
    const std::vector<std::string> open = {"service Database Tar Vex", "form Form4"};
    for (int round = 0; round < Rounds(3); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        std::filesystem::remove(desk.Database());
        Manager one(desk);
        Manager two(desk);
        one.DoAll(open);
        two.DoAll(open);
        one.Begin("click ssCommand2");
        std::this_thread::sleep_for(Moment(std::chrono::milliseconds(30)));
        two.Do("click ssCommand2");
        EXPECT_TRUE(one.Ends(ChildProgram::kPatience));
        EXPECT_EQ(one.Close(), 0);
        EXPECT_EQ(two.Close(), 0);
        Note("pairs");

        const auto rows = SurveyRows(desk.Database());
        std::vector<std::string> clients;
        for (const auto& row : rows)
            clients.push_back(row.substr(0, 8));
        std::vector<std::string> expected;
        for (const auto& header : DefaultTable())
            expected.push_back(header.substr(0, 8));
        EXPECT_THAT(clients, UnorderedElementsAreArray(expected));
        EXPECT_THAT(OfDatabase(desk.Database(), rows, rows) + OfPlaces(desk, {}), IsEmpty());
        ExpectNextStartWorks();
    }
}

TEST_F(TwoManagersTest, LeaveOneOfThemThePort)
{
    Manager one(desk);
    Manager two(desk);
    one.Begin("click Command8");
    ASSERT_TRUE(OpensItsPort(one));
    EXPECT_THAT(two.Do("click Command3"), IsEmpty()); // fields go blank, without a word
    EXPECT_TRUE(one.Ends(ChildProgram::kPatience));
    EXPECT_EQ(one.Text("Text3"), "DELVALLE");
    two.Do("click Command3");
    EXPECT_EQ(two.Text("Text3"), "DELVALLE");
    Note("pairs");

    one.Begin("click Command8");
    ASSERT_TRUE(OpensItsPort(one));
    one.Kill();
    Note("kills");
    EXPECT_EQ(two.Close(), 0);
    ExpectNextStartWorks();
}

} // namespace
} // namespace tarvex::tests
