#include "panel/rules/clock_checks.h"

#include "core/conversion.h"

namespace tarvex::panel
{

namespace
{

constexpr int kEnter = 13;
constexpr int kBackspace = 8;

void CheckKey(int key, MessageBoxes& messages)
{
    if (key == kEnter || key == kBackspace || (key >= '0' && key <= '9')) return;
    messages.Critical("Attention: Insert only numbers");
}

void CheckLength(const TextBox& box, MessageBoxes& messages)
{
    if (box.Text().size() < 2) messages.Critical("Attention: Insert two digits");
}

void RefuseAbove(const TextBox& box, double highest, MessageBoxes& messages)
{
    if (NumericValue(box.Text()) > highest) messages.Critical("Attention: Invalid value");
}

void RefuseZeroAndAbove(const TextBox& box, double highest, MessageBoxes& messages)
{
    const double value = NumericValue(box.Text());
    if (value == 0 || value > highest) messages.Critical("Attention: Invalid value");
}

void LeaveDay(const ClockBoxes& clock, MessageBoxes& messages)
{
    CheckLength(clock.day, messages);
    RefuseZeroAndAbove(clock.day, 31, messages);
}

void LeaveMonth(const ClockBoxes& clock, MessageBoxes& messages)
{
    CheckLength(clock.month, messages);
    RefuseZeroAndAbove(clock.month, 12, messages);
}

void LeaveYear(const ClockBoxes& clock, MessageBoxes& messages)
{
    CheckLength(clock.year, messages);
}

void LeaveHours(const ClockBoxes& clock, MessageBoxes& messages)
{
    CheckLength(clock.hours, messages);
    RefuseAbove(clock.hours, 23, messages);
}

/// With the limits of the month.
void LeaveMinutes(const ClockBoxes& clock, MessageBoxes& messages)
{
    CheckLength(clock.minutes, messages);
    RefuseZeroAndAbove(clock.minutes, 12, messages);
}

/// Looks at the day and the hours, never at its own field.
void LeaveSeconds(const ClockBoxes& clock, MessageBoxes& messages)
{
    CheckLength(clock.day, messages);
    RefuseAbove(clock.hours, 59, messages);
}

} // namespace

const std::array<ClockCheck, 6> kClockChecks = {{
    {"Text1a", CheckKey, LeaveMonth},
    {"Text13a", CheckKey, LeaveDay},
    {"Text14a", CheckKey, LeaveHours},
    {"Text2a", CheckKey, LeaveYear},
    {"Text3a", CheckKey, LeaveMinutes},
    {"Text4a", CheckKey, LeaveSeconds},
}};

} // namespace tarvex::panel
