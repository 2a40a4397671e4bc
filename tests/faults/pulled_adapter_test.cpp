#include "faults/fault_test.h"
#include "faults/watched_process.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <span>
#include <sstream>
#include <thread>

namespace tarvex::tests
{
namespace
{

using ::testing::IsEmpty;
using namespace std::chrono_literals;

/// A command on the line.
struct LineCommand {
    const char* name;
    std::vector<std::string> preparation;
    std::string step;
};

/// Whether TARVEX_EVERY_PULL asks for every moment of every command, which takes an hour or two.
bool PullsAtEveryMoment()
{
    return std::getenv("TARVEX_EVERY_PULL") != nullptr;
}

/// Of the tests of a command, each of which pulls at its share of the moments.
int Shares()
{
    return PullsAtEveryMoment() ? 24 : 1;
}

struct CommandShare {
    LineCommand command;
    int share;
};

std::string NameOf(const CommandShare& share)
{
    return share.command.name + (share.share > 0 ? std::to_string(share.share) : "");
}

void PrintTo(const CommandShare& share, std::ostream* stream)
{
    *stream << NameOf(share);
}

std::vector<CommandShare> SharesOf(std::span<const LineCommand> commands)
{
    std::vector<CommandShare> shares;
    for (const auto& command : commands)
        for (int share = 0; share < Shares(); ++share)
            shares.push_back({command, share});
    return shares;
}

const LineCommand kCommands[] = {
    {"ReadBlock", {}, "click Command3"},
    {"ReadAllBlocks", {}, "click Command8"},
    {"SetBlock", {}, "click Command6"},
    {"SetAll", {}, "click sscommand6"},
    {"ResetBlock", {}, "click Command7"},
    {"TotalReset", {}, "click ssCommand8"},
    {"ResetGainZero", {"tab 3"}, "click Command13"},
    {"ReadClock", {"tab 3"}, "click ssCommand3"},
    {"WriteClock",
     {"tab 3", "type Text13a 23", "type Text1a 04", "type Text2a 14", "type Text14a 10",
      "type Text3a 15", "type Text4a 30"},
     "click ssCommand4"},
    {"StartClock", {}, "service Start Clock"},
    {"CycleDelay", {"tab 3"}, "click Command6scrivi"},
    {"Download", {"tab 2"}, "click command3d1"},
};

/// A moment of a conversation: the unit has said so many characters of an answer.
struct Pull {
    std::string answer; // by the name that the unit's faults have for it
    int number;
    int characters;

    bool operator==(const Pull&) const = default;

    std::string Fault() const
    {
        return "hangup@" + answer + std::to_string(number) + ":" + std::to_string(characters);
    }
};

constexpr std::size_t kHeaderPages = 10;
constexpr int kPageReply = 50;

/// When the last character of a block's header has come.
Pull LastOf(std::size_t block)
{
    return {"page", static_cast<int>(block * kHeaderPages), kPageReply};
}

/// The kind and the length of what a line of the unit's log shows to have been said; none for what
/// has no answer that could be cut off.
std::optional<std::pair<std::string, int>> AnswerOn(const std::string& line)
{
    std::istringstream fields(line);
    std::string time;
    std::string speaker;
    std::string words;
    fields >> time >> speaker >> words;
    if (speaker == "unit") {
        if (words == "!") return std::pair("wake", 1);
        return words.size() == 2 ? std::pair("page", kPageReply) : std::pair("clock", 14);
    }
    if (speaker != "manager" || std::string_view("CDGbc").find(words[0]) == std::string_view::npos)
        return std::nullopt;
    return std::pair("write", 0);
}

/// An adapter that goes away before, in or after one of the unit's answers to a command.
class PulledAdapterTest : public FaultTest, public ::testing::WithParamInterface<CommandShare>
{
protected:
    const LineCommand& Command() const { return GetParam().command; }

    /// Runs the command undisturbed, and gives every moment at which it can be: in a random order,
    /// or as they come when none is left out.
    std::vector<Pull> Moments()
    {
        const auto log = desk.top / "conversation";
        StartUnit({"--log", log.string()});
        Manager manager(desk);
        Prepare(manager);
        manager.Do(Command().step);
        EXPECT_EQ(manager.Close(), 0);
        unit->Signal(SIGTERM);
        unit->ExitStatus();
        auto moments = MomentsIn(log);
        std::filesystem::remove(log);
        if (!PullsAtEveryMoment()) std::shuffle(moments.begin(), moments.end(), chance);
        return moments;
    }

    void Prepare(Manager& manager) const
    {
        manager.Do("reports " + desk.reports.string());
        manager.DoAll(Command().preparation);
    }

    /// Pulls the adapter at that moment of the command.
    void PullAt(const Pull& pull, const Files& clean)
    {
        StartUnit({"--fault", pull.Fault()});
        Manager manager(desk);
        Prepare(manager);
        manager.Begin(Command().step);
        EXPECT_EQ(unit->ExitStatus(), 0);
        Note("pulls");

        const bool ended = manager.Ends(2'000); // or it waits for what will never come
        const WatchedProcess process(manager.Process());
        EXPECT_LT(process.LoadWithin(200ms), 0.5);
        EXPECT_THAT(OfHeaderTable(desk.HeaderTable(), DefaultTable(), TableAfter(pull)) +
                        OfReports(desk.reports, clean) + OfPlaces(desk, clean),
                    IsEmpty());
        if (ended) ExpectTheLineWorksAgain(manager, process);
        EXPECT_EQ(manager.Close(), 0);
        StartUnit();
        ExpectNextStartWorks();
    }

private:
    /// What the header table becomes as far as the command gets. An adapter that goes with the last
    /// character of a block leaves Read All Blocks without a port for the rest: it passes over
    /// their pages, and each takes the header of the block before.
    std::vector<std::string> TableAfter(const Pull& pull) const
    {
        auto table = DemoTable();
        const auto blocks = static_cast<std::size_t>(pull.number) / kHeaderPages;
        if (Command().name == std::string_view("ReadAllBlocks") && pull == LastOf(blocks))
            std::fill(table.begin() + static_cast<std::ptrdiff_t>(blocks), table.end(),
                      table[blocks - 1]);
        return table;
    }

    std::vector<Pull> MomentsIn(const std::filesystem::path& log)
    {
        std::vector<Pull> moments;
        std::map<std::string, int> counts;
        std::ifstream stream(log);
        for (std::string line; std::getline(stream, line);) {
            const auto answer = AnswerOn(line);
            if (!answer) continue;
            const auto& [kind, length] = *answer;
            const int number = ++counts[kind];
            moments.push_back({kind, number, 0});
            if (length > 1) moments.push_back({kind, number, SomeOf(length)});
            if (length > 0) moments.push_back({kind, number, length});
        }
        return moments;
    }

    int SomeOf(int length)
    {
        return 1 + static_cast<int>(chance.Below(static_cast<std::uint32_t>(length - 1)));
    }

    void ExpectTheLineWorksAgain(Manager& manager, const WatchedProcess& process)
    {
        EXPECT_THAT(process.Terminals(), IsEmpty());
        StartUnit();
        manager.DoAll({"tab 1", "type Text2 02"});
        // Reset Block keeps its port when it has done its work; the next press finds it dead.
        if (!manager.Do("click Command3").empty()) {
            EXPECT_EQ(Command().name, std::string_view("ResetBlock"));
            manager.Do("click Command3");
        }
        EXPECT_EQ(manager.Text("Text3"), "DELVALLE");
        Note("returns");
    }
};

TEST_P(PulledAdapterTest, LeavesTheManagerWholeAndAbleToGoOn)
{
    const auto moments = Moments();
    ASSERT_FALSE(moments.empty());
    const Files clean = FilesIn(desk.reports);
    const auto count =
        PullsAtEveryMoment() ? moments.size() : std::min(moments.size(), std::size_t(Rounds(3)));
    const auto first = static_cast<std::size_t>(GetParam().share);
    for (std::size_t index = first; index < count; index += static_cast<std::size_t>(Shares())) {
        SCOPED_TRACE(moments[index].Fault());
        PullAt(moments[index], clean);
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, PulledAdapterTest, ::testing::ValuesIn(SharesOf(kCommands)),
                         [](const auto& test) { return NameOf(test.param); });

} // namespace
} // namespace tarvex::tests
