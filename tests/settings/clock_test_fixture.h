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
        panel.Clock.Text2a.SetText(year);
        panel.Clock.Text1a.SetText(month);
        panel.Clock.Text13a.SetText(day);
        panel.Clock.Text14a.SetText(hours);
        panel.Clock.Text3a.SetText(minutes);
        panel.Clock.Text4a.SetText(seconds);
    }

    /// In the order of the line.
    std::vector<std::string> Shown() const
    {
        const ClockBoxes& clock = panel.Clock;
        return {clock.Text2a.Text(),  clock.Text1a.Text(), clock.Text13a.Text(),
                clock.Text14a.Text(), clock.Text3a.Text(), clock.Text4a.Text()};
    }

    void PressRead(ClockBoxes* boxesShown)
    {
        ClickLink([&](DeviceLink& link) { ReadClock(boxesShown, link); });
    }
    void PressRead() { PressRead(&panel.Clock); }

    void PressWrite()
    {
        ClickLink([&](DeviceLink& link) { WriteClock(panel.Clock, link, boxes); });
    }

    void PressStart()
    {
        ClickLink([&](DeviceLink& link) { StartClock(link, boxes); });
    }
};

} // namespace tarvex::tests
