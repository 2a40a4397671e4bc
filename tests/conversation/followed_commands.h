#pragma once

#include "blocks/block_commands.h"
#include "download/block_download.h"
#include "settings/clock.h"
#include "settings/cycle_delay.h"
#include "support/logic_test.h"
#include "support/survey.h"

#include <string>
#include <vector>

namespace tarvex::tests
{

/// Whole commands, and all that their progress tells on the way.
class FollowedCommands : public LogicTest
{
protected:
    FollowedCommands();

    /// The n-th wake (from 1) gets no answer.
    void MissWake(int n);

    /// The n-th read frame (from 1) gets no answer.
    void MissRead(int n);

    void Read() { PressReadBlock(*this); }
    void Download();
    void ReadTheClock();
    void WriteTheDelay();

    /// At that moment the operator presses another button.
    void PressAt(Milliseconds moment, const std::function<void()>& press);

    /// Everything told so far, one text a change: "3/10", "3/10 stalled at 3500", "3/10 alive at
    /// 9000".
    std::vector<std::string> told;

    /// "0/10", "1/10" and so on to "`last`/10".
    static std::vector<std::string> Counted(int last, int of, int first = 0);

    const ExchangeProgress& Told() const { return panel.waitIndicator.progress; }

private:
    void Note();

    bool stalled_ = false;
};

/// One list after the other.
std::vector<std::string> operator+(std::vector<std::string> first,
                                   const std::vector<std::string>& second);

} // namespace tarvex::tests
