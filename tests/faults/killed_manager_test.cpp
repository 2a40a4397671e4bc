#include "faults/fault_test.h"

#include <thread>

namespace tarvex::tests
{
namespace
{

using std::chrono::microseconds;
using ::testing::IsEmpty;
using namespace std::chrono_literals;

/// A manager that is killed at some moment, and the next one on what it has left.
class KilledManagerTest : public FaultTest
{
protected:
    KilledManagerTest() { StartUnit(); }

    /// Kills so many managers inside `step`, which comes after `preparation` and takes so long.
    template <class Check>
    void KillInside(int kills, const std::vector<std::string>& preparation, const std::string& step,
                    microseconds whole, const Check& check)
    {
        for (int round = 0; round < Rounds(kills); ++round) {
            SCOPED_TRACE("round " + std::to_string(round));
            Manager manager(desk);
            manager.DoAll(preparation);
            manager.Begin(step);
            FaultTest::KillInside(manager, whole);
            EXPECT_THAT(check() + OfPlaces(desk, clean), IsEmpty());
            ExpectNextStartWorks();
        }
    }

    /// Waits for a file that a manager is to make, and misses the moment by little.
    static bool Comes(const std::filesystem::path& file)
    {
        const auto end = std::chrono::steady_clock::now() + 20s;
        while (!std::filesystem::exists(file)) {
            if (std::chrono::steady_clock::now() > end) return false;
            std::this_thread::sleep_for(100us);
        }
        return true;
    }

    Files clean; // reports of a download that nothing happened to
};

TEST_F(KilledManagerTest, LeavesWholeRecordsOfADownload)
{
    const std::vector<std::string> preparation = {"reports " + desk.reports.string(), "tab 2"};
    Manager first(desk);
    first.DoAll(preparation);
    const auto whole = TimeOf(first, "click command3d1");
    EXPECT_EQ(first.Close(), 0);
    clean = FilesIn(desk.reports);
    ASSERT_EQ(clean.size(), 3U);
    ASSERT_THAT(OfReports(desk.reports, clean), IsEmpty());

    KillInside(8, preparation, "click command3d1", whole,
               [&] { return OfReports(desk.reports, clean); });

    Manager next(desk);
    next.DoAll(preparation);
    EXPECT_THAT(next.Do("click command3d1"), IsEmpty());
    EXPECT_EQ(next.Close(), 0);
    EXPECT_EQ(FilesIn(desk.reports), clean);
}

TEST_F(KilledManagerTest, LeavesWholeHeadersOfReadAllBlocks)
{
    Manager first(desk);
    const auto whole = TimeOf(first, "click Command8");
    EXPECT_EQ(first.Close(), 0);
    ASSERT_THAT(OfHeaderTable(desk.HeaderTable(), DemoTable(), DemoTable()), IsEmpty());

    KillInside(6, {}, "click Command8", whole,
               [&] { return OfHeaderTable(desk.HeaderTable(), DefaultTable(), DemoTable()); });
}

TEST_F(KilledManagerTest, LeavesWholeHeadersInTheUnitAfterSetAll)
{
    auto written = DefaultTable();
    written[0] = WithClient("FIRST", written[0]);
    const auto check = [&] {
        const auto complaints = OfHeaderTable(desk.HeaderTable(), DefaultTable(), written);
        Manager reader(desk);
        reader.Do("click Command8"); // the unit's headers, into the table
        EXPECT_EQ(reader.Close(), 0);
        return complaints + OfHeaderTable(desk.HeaderTable(), DemoTable(), written);
    };

    KillInside(3, {"type Text3 first"}, "click sscommand6", 7s, check);
}

/// What has been acknowledged is on the disk.
TEST_F(KilledManagerTest, KeepsEveryHeaderThatWasStored)
{
    auto written = DefaultTable();
    for (auto& record : written)
        record = WithClient("STORED", record);
    for (int round = 0; round < Rounds(8); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        auto stored = DefaultTable();
        const auto steps = chance.Below(kBlockCount - 1);
        Manager manager(desk);
        for (std::size_t index = 0; index < steps; ++index) {
            manager.DoAll({"type Text3 stored", "click sscommand10"});
            stored[index] = written[index];
        }
        manager.Begin("click sscommand10");
        FaultTest::KillInside(manager, 5ms);
        EXPECT_THAT(OfHeaderTable(desk.HeaderTable(), stored, stored) + OfPlaces(desk, clean),
                    IsEmpty());
        ExpectNextStartWorks();
    }
}

/// Half of the kills come with the file dialog on view, the others when the new table is begun.
TEST_F(KilledManagerTest, LeavesWholeHeadersInANewTable)
{
    const auto table = desk.start / "other";
    const std::vector<std::string> made(kBlockCount, WithClient("CLIENT0", DefaultRecord(1)));
    for (int round = 0; round < Rounds(4); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        Manager manager(desk);
        manager.Do("file other");
        manager.Begin("service Default");
        if (round % 2 == 0) {
            FaultTest::KillInside(manager, 200ms);
        } else {
            EXPECT_TRUE(Comes(table));
            FaultTest::KillInside(manager, 2ms);
        }
        EXPECT_THAT(OfHeaderTable(table, made, made), IsEmpty());
        std::filesystem::remove(table);
        EXPECT_THAT(OfPlaces(desk, clean), IsEmpty());
        ExpectNextStartWorks();
    }
}

TEST_F(KilledManagerTest, LeavesWholeHeadersAtItsStart)
{
    std::string table;
    for (const auto& record : OwnTable())
        table += record;
    for (int round = 0; round < Rounds(8); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        WriteFile(desk.HeaderTable(), table);
        Manager manager(desk, Manager::Unawaited{});
        FaultTest::KillInside(manager, 150ms);
        EXPECT_THAT(OfHeaderTable(desk.HeaderTable(), OwnTable(), DefaultTable()) +
                        OfPlaces(desk, clean),
                    IsEmpty());
        ExpectNextStartWorks();
    }
}

TEST_F(KilledManagerTest, LeavesWholeHeadersWhereItIsInstalled)
{
    for (int round = 0; round < Rounds(3); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        Manager manager(desk, Manager::Unawaited{}, {.program = TARVEX_MANAGER});
        std::this_thread::sleep_for(1900ms); // the splash
        FaultTest::KillInside(manager, 500ms);
        EXPECT_THAT(OfHeaderTable(desk.HeaderTable(), DefaultTable(), DefaultTable()) +
                        OfPlaces(desk, clean),
                    IsEmpty());
        ExpectNextStartWorks();
    }
}

} // namespace
} // namespace tarvex::tests
