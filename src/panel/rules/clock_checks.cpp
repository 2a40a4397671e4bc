#include "panel/rules/clock_checks.h"

#include "core/conversion.h"

namespace tarvex::panel
{

namespace
{

constexpr int kEnter = 13;
constexpr int kBackspace = 8;

void CheckKey(int key, MessageBoxes& boxes)
{
    if (key == kEnter || key == kBackspace || (key >= '0' && key <= '9')) return;
    boxes.Critical("Attention: Insert only numbers");
}

void CheckLength(const TextBox& box, MessageBoxes& boxes)
{
    if (box.Text().size() < 2) boxes.Critical("Attention: Insert two digits");
}

void RefuseAbove(const TextBox& box, double highest, MessageBoxes& boxes)
{
    if (NumericValue(box.Text()) > highest) boxes.Critical("Attention: Invalid value");
}

void RefuseZeroAndAbove(const TextBox& box, double highest, MessageBoxes& boxes)
{
    const double value = NumericValue(box.Text());
    if (value == 0 || value > highest) boxes.Critical("Attention: Invalid value");
}

void LeaveDay(const ClockBoxes& clock, MessageBoxes& boxes)
{
    CheckLength(clock.day, boxes);
    RefuseZeroAndAbove(clock.day, 31, boxes);
}

void LeaveMonth(const ClockBoxes& clock, MessageBoxes& boxes)
{
    CheckLength(clock.month, boxes);
    RefuseZeroAndAbove(clock.month, 12, boxes);
}

void LeaveYear(const ClockBoxes& clock, MessageBoxes& boxes)
{
    CheckLength(clock.year, boxes);
}

void LeaveHours(const ClockBoxes& clock, MessageBoxes& boxes)
{
    CheckLength(clock.hours, boxes);
    RefuseAbove(clock.hours, 23, boxes);
}

/// With the limits of the month.
void LeaveMinutes(const ClockBoxes& clock, MessageBoxes& boxes)
{
    CheckLength(clock.minutes, boxes);
    RefuseZeroAndAbove(clock.minutes, 12, boxes);
}

/// Looks at the day and the hours, never at its own field.
void LeaveSeconds(const ClockBoxes& clock, MessageBoxes& boxes)
{
    CheckLength(clock.day, boxes);
    RefuseAbove(clock.hours, 59, boxes);
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
