#include "documents/conversation_test.h"

#include <map>

namespace tarvex::tests
{
namespace
{

TEST(ProtocolPage, HasAnExampleOfEveryKindOfFrame)
{
    EXPECT_THAT(Page("protocol.md").ExampleNames(),
                ::testing::UnorderedElementsAre("read-block", "set-block", "reset-gain-zero",
                                                "download", "cycle-delay", "read-clock",
                                                "write-clock", "start-clock"));
}

class ExampleConversation : public ConversationTest,
                            public ::testing::WithParamInterface<std::string>
{
};

TEST_P(ExampleConversation, IsWhatManagerAndUnitSay)
{
    Run(GetParam());

    EXPECT_EQ(Difference(page.Example(GetParam()), heard.Lines()), "");
}

std::string InOneWord(const ::testing::TestParamInfo<std::string>& command)
{
    std::string name = command.param;
    std::erase(name, '-');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Page, ExampleConversation,
                         ::testing::ValuesIn(Page("protocol.md").ExampleNames()), InOneWord);

class SettleTable : public ConversationTest
{
protected:
    /// From each frame without an answer to whatever comes after it.
    std::vector<Milliseconds> Pauses() const
    {
        std::vector<Milliseconds> pauses;
        for (std::size_t i = 0; i < heard.said.size(); ++i) {
            const auto& words = heard.said[i];
            if (words.byUnit || words.bytes == "}") continue;
            const bool last = i + 1 == heard.said.size();
            pauses.push_back((last ? ended : heard.said[i + 1].at) - words.at);
        }
        return pauses;
    }
};

class SettleRow : public SettleTable, public ::testing::WithParamInterface<Cells>
{
};

TEST_P(SettleRow, IsTheWaitOfThatCommand)
{
    static const std::map<std::string, std::string> commands = {
        {"Set Block", "set-block"},
        {"Set All", "set-all"},
        {"Reset Block", "reset-block"},
        {"Total Reset", "total-reset"},
        {"Reset of gain and zero", "reset-gain-zero"},
        {"cycle delay", "cycle-delay"},
        {"Write Clock", "write-clock"},
        {"Start Clock", "start-clock"},
    };
    Run(commands.at(GetParam().at(0)));

    const int ticks = Number(GetParam().at(1));
    ASSERT_FALSE(Pauses().empty());
    EXPECT_THAT(Pauses(), ::testing::Each(::testing::AllOf(::testing::Gt((ticks - 1) * 100),
                                                           ::testing::Le(ticks * 100))));
}

INSTANTIATE_TEST_SUITE_P(
    Page, SettleRow, ::testing::ValuesIn(Page("protocol.md").Table("How long the manager waits")));

TEST(ProtocolPage, ListsTheWaitOfEveryCommandThatWrites)
{
    EXPECT_EQ(Page("protocol.md").Table("How long the manager waits").size(), 8U);
}

class FrameRow : public ConversationTest, public ::testing::WithParamInterface<Cells>
{
protected:
    /// The first frame that begins so, and what the unit says to it.
    std::pair<std::string, std::string> FirstFrame(const std::string& beginning) const
    {
        for (std::size_t i = 0; i < heard.said.size(); ++i) {
            if (heard.said[i].byUnit || !heard.said[i].bytes.starts_with(beginning)) continue;
            const bool answered = i + 1 < heard.said.size() && heard.said[i + 1].byUnit;
            return {heard.said[i].bytes, answered ? heard.said[i + 1].bytes : ""};
        }
        return {};
    }
};

TEST_P(FrameRow, IsTheFrameOnTheLine)
{
    for (const char* command : {"read-block", "set-block", "reset-gain-zero", "cycle-delay",
                                "read-clock", "write-clock", "start-clock"})
        Run(command);
    // What a frame begins with comes first in its cell, the address or the payload after a comma.
    const std::string bytes = GetParam().at(1);
    const auto [frame, answer] = FirstFrame(bytes.substr(0, bytes.find(',')));

    EXPECT_EQ(frame.size(), static_cast<std::size_t>(Number(GetParam().at(2))));
    EXPECT_EQ(answer.size(), static_cast<std::size_t>(Number(GetParam().at(3))));
    EXPECT_EQ(frame.ends_with('\r'), bytes.ends_with(", CR"));
}

INSTANTIATE_TEST_SUITE_P(Page, FrameRow, ::testing::ValuesIn(Page("protocol.md").Table("Frames")));

} // namespace
} // namespace tarvex::tests
