#include "conversation/followed_commands.h"

namespace tarvex::tests
{

FollowedCommands::FollowedCommands()
{
    std::filesystem::create_directory(folder / "reports");
    state.reportFolder = folder / "reports";
    SetSmallSurvey(unit, 0);
    panel.waitIndicator.progress.Watch([this] { Note(); });
}

void FollowedCommands::MissWake(int n)
{
    unit.answerWake = [n](int wake) { return wake == n ? "" : "!"; };
}

void FollowedCommands::MissRead(int n)
{
    unit.answerRead = [n](int read, const std::string& reply) {
        return read == n ? std::string() : reply;
    };
}

void FollowedCommands::Download()
{
    ClickLink([&](DeviceLink& link) { BlockDownload(panel, state, link, view, world); });
}

void FollowedCommands::ReadTheClock()
{
    unit.answers["H\r"] = "261121235958\r\n";
    ClickLink([&](DeviceLink& link) { ReadClock(&panel.clock, link, view); });
}

void FollowedCommands::WriteTheDelay()
{
    ClickLink([&](DeviceLink& link) { WriteCycleDelay(panel.cycleDelay, link, view); });
}

void FollowedCommands::PressAt(Milliseconds moment, const std::function<void()>& press)
{
    world.At(moment, press);
}

std::vector<std::string> FollowedCommands::Counted(int last, int of, int first)
{
    std::vector<std::string> texts;
    for (int done = first; done <= last; ++done)
        texts.push_back(std::to_string(done) + "/" + std::to_string(of));
    return texts;
}

void FollowedCommands::Note()
{
    const ExchangeCount& now = Told().Now();
    std::string text = std::to_string(now.done) + "/" + std::to_string(now.expected);
    if (now.stalled != stalled_)
        text += (now.stalled ? " stalled at " : " alive at ") + std::to_string(world.Now());
    stalled_ = now.stalled;
    told.push_back(text);
}

std::vector<std::string> operator+(std::vector<std::string> first,
                                   const std::vector<std::string>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

} // namespace tarvex::tests
