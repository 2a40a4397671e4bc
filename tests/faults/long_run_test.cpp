#include "faults/fault_test.h"
#include "faults/watched_process.h"

namespace tarvex::tests
{
namespace
{

constexpr int kCommands = 2'000;
constexpr int kSettled = 500;        // after these the program has what it needs
constexpr long kMoreAllowed = 1'024; // kilobytes

/// A sanitizer keeps what is freed, to see its use, and where each piece came from.
const ManagerStart kNothingPutAside = {
    .wrapper = {"env", "ASAN_OPTIONS=quarantine_size_mb=0:thread_local_quarantine_size_kb=0:"
                       "malloc_context_size=0"}};

/// One manager that is not closed all day.
class LongRunTest : public FaultTest
{
};

TEST_F(LongRunTest, TakesNoMoreMemoryAndNoMoreDescriptorsAfterManyCommands)
{
    const std::vector<std::string> commands = {"click Command3",    "click sscommand10",
                                               "click Command3",    "click sscommand9",
                                               "click sscommand11", "tab 3",
                                               "click ssCommand3",  "tab 1",
                                               "click Command3",    "type Text3 rossi",
                                               "click Command11",   "click Command3",
                                               "form Form4",        "click ssCommand2",
                                               "form Scaricodati",  "click Command3"};
    StartUnit();
    Manager manager(desk, kNothingPutAside);
    manager.DoAll({"reports " + desk.reports.string(), "service Database Tar Vex"});
    const WatchedProcess process(manager.Process());
    long memory = 0;
    int descriptors = 0;
    for (int command = 0; command < Rounds(kCommands); ++command) {
        if (command == kSettled) {
            memory = process.PrivateMemory();
            descriptors = process.Descriptors();
        }
        manager.Do(commands[static_cast<std::size_t>(command) % commands.size()]);
        if (command % 480 == 0) manager.DoAll({"tab 2", "click command3d1", "tab 1"});
    }
    Note("commands", Rounds(kCommands));
    Note("kB more", static_cast<int>(process.PrivateMemory() - memory));

    EXPECT_LE(process.PrivateMemory(), memory + kMoreAllowed);
    EXPECT_EQ(process.Descriptors(), descriptors);
    EXPECT_EQ(manager.Close(), 0);
}

} // namespace
} // namespace tarvex::tests
