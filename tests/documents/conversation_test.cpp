#include "documents/conversation_test.h"

#include "blocks/block_commands.h"
#include "download/block_download.h"
#include "settings/cycle_delay.h"
#include "unit/survey.h"

#include <map>

namespace tarvex::tests
{

namespace
{

/// Three depths, each at another lean; two guides.
unit::Memory SmallMemory()
{
    unit::Memory memory = unit::DemoMemory();
    unit::Survey survey;
    survey.header = {"ROSSI", "DIGA A", "T12", "0015", "0", "2", "+045", "03", "120426", "093015"};
    unit::FillBlock(memory, 1, survey);
    return memory;
}

/// The questions of the commands that ask one.
const std::map<std::string, std::string> kQuestions = {
    {"set-block", kBlocksQuestion},
    {"set-all", kBlockQuestion},
    {"reset-block", kBlockQuestion},
    {"total-reset", kBlockQuestion},
    {"reset-gain-zero", kGainZeroQuestion},
    {"write-clock", "ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?"},
    {"start-clock", "ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?"},
};

} // namespace

ConversationTest::ConversationTest() : heard(*this, SmallMemory())
{
    heard.unit.RunningClock().Set("140423101530", unit::Time{0});
    heard.unit.RunningClock().Stop(unit::Time{0});
    state.reportFolder = folder.Path();
}

void ConversationTest::Run(const std::string& command)
{
    const auto question = kQuestions.find(command);
    if (question != kQuestions.end()) boxes.ExpectQuestion(question->second, true);
    Press(command);
    ended = world.Now();
}

void ConversationTest::Press(const std::string& command)
{
    const std::map<std::string, std::function<void()>> presses = {
        {"read-block", [&] { PressReadBlock(*this); }},
        {"set-block", [&] { PressSetBlock(*this); }},
        {"set-all", [&] { PressSetAll(*this); }},
        {"reset-block", [&] { PressResetBlock(*this); }},
        {"total-reset", [&] { PressTotalReset(*this); }},
        {"reset-gain-zero", [&] { PressResetGainZero(*this); }},
        {"download",
         [&] {
             ClickLink([&](DeviceLink& link) { BlockDownload(panel, state, link, view, world); });
         }},
        {"cycle-delay",
         [&] {
             ClickLink([&](DeviceLink& link) { WriteCycleDelay(panel.cycleDelay, link, view); });
         }},
        {"read-clock", [&] { PressRead(); }},
        {"write-clock", [&] { PressWrite(); }},
        {"start-clock", [&] { PressStart(); }},
    };
    presses.at(command)();
}

} // namespace tarvex::tests
