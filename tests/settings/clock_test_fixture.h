#pragma once

#include "settings/clock.h"
#include "support/logic_test.h"

namespace tarvex::tests
{

/// The panel's six clock boxes hold 23 April 2014, 10:15:30.
class ClockTest : public LogicTest
{
protected:
    static constexpr const char* kNotConnected = "Attention: TAR--VEX not connected";
    static constexpr const char* kQuestion =
        "ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?";

    ClockTest() { Fill("14", "04", "23", "10", "15", "30"); }

    /// In the order of the line.
    void Fill(const char* year, const char* month, const char* day, const char* hours,
              const char* minutes, const char* seconds)
    {
        panel.clock.year.SetText(year);
        panel.clock.month.SetText(month);
        panel.clock.day.SetText(day);
        panel.clock.hours.SetText(hours);
        panel.clock.minutes.SetText(minutes);
        panel.clock.seconds.SetText(seconds);
    }

    /// In the order of the line.
    std::vector<std::string> Shown() const
    {
        const ClockBoxes& clock = panel.clock;
        return {clock.year.Text(),  clock.month.Text(),   clock.day.Text(),
                clock.hours.Text(), clock.minutes.Text(), clock.seconds.Text()};
    }

    void PressRead(ClockBoxes* boxesShown)
    {
        ClickLink([&](DeviceLink& link) { ReadClock(boxesShown, link, view); });
    }
    void PressRead() { PressRead(&panel.clock); }

    void PressWrite()
    {
        ClickLink([&](DeviceLink& link) { WriteClock(panel.clock, link, view); });
    }

    void PressStart()
    {
        ClickLink([&](DeviceLink& link) { StartClock(link, view); });
    }
};

} // namespace tarvex::tests
