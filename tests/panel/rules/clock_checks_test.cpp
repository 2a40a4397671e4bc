#include "panel/rules/clock_checks.h"
#include "panel/rules/delay_check.h"
#include "support/scripted_boxes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tarvex::tests
{
namespace
{

using panel::ClockCheck;

const ClockCheck& CheckOf(std::string_view field)
{
    return *std::find_if(panel::kClockChecks.begin(), panel::kClockChecks.end(),
                         [field](const ClockCheck& check) { return check.field == field; });
}

TEST(ClockChecks, BelongToTheSixFieldsOfTheClock)
{
    std::string fields;
    for (const ClockCheck& check : panel::kClockChecks)
        fields += std::string(check.field) + " ";
    EXPECT_EQ(fields, "Text1a Text13a Text14a Text2a Text3a Text4a ");
}

TEST(ClockChecks, EveryFieldTakesDigitsEnterAndBackspaceInSilenceAndWarnsOfTheRest)
{
    for (const ClockCheck& check : panel::kClockChecks) {
        ScriptedBoxes boxes;
        for (const int key : {13, 8, int{'0'}, int{'9'}})
            check.keyPressed(key, boxes);
        EXPECT_EQ(boxes.shown, 0);
        for (const int key : {int{'/'}, int{':'}, int{'a'}, int{' '}}) {
            boxes.Expect("Attention: Insert only numbers");
            check.keyPressed(key, boxes);
        }
    }
}

struct LeaveCase {
    const char* name;
    const char* field;
    const char* own; ///< the text of the field itself
    bool invalid;
};

class LeavingAClockField : public ::testing::TestWithParam<LeaveCase>
{
};

TEST_P(LeavingAClockField, WarnsOutsideItsLimitsAlone)
{
    ClockBoxes clock;
    const LeaveCase& leave = GetParam();
    for (TextBox* box :
         {&clock.day, &clock.month, &clock.year, &clock.hours, &clock.minutes, &clock.seconds}) {
        box->SetText(leave.own);
    }
    ScriptedBoxes boxes;
    if (leave.invalid) boxes.Expect("Attention: Invalid value");

    CheckOf(leave.field).left(clock, boxes);

    EXPECT_EQ(clock.month.Text(), leave.own);
}

INSTANTIATE_TEST_SUITE_P(
    , LeavingAClockField,
    ::testing::Values(LeaveCase{"MonthZero", "Text1a", "00", true},
                      LeaveCase{"MonthTwelve", "Text1a", "12", false},
                      LeaveCase{"MonthThirteen", "Text1a", "13", true},
                      LeaveCase{"DayZero", "Text13a", "00", true},
                      LeaveCase{"DayLast", "Text13a", "31", false},
                      LeaveCase{"DayTooHigh", "Text13a", "32", true},
                      LeaveCase{"HoursZero", "Text14a", "00", false},
                      LeaveCase{"HoursLast", "Text14a", "23", false},
                      LeaveCase{"HoursTooHigh", "Text14a", "24", true},
                      LeaveCase{"YearAny", "Text2a", "99", false},
                      LeaveCase{"MinutesHaveTheMonthsLimits", "Text3a", "13", true},
                      LeaveCase{"MinutesZero", "Text3a", "00", true},
                      LeaveCase{"SecondsLast", "Text4a", "59", false},
                      LeaveCase{"SecondsLookAtTheHours", "Text4a", "60", true}),
    [](const auto& test) { return test.param.name; });

TEST(ClockChecks, TheSecondsLookAtDayAndHoursNeverAtTheirOwnField)
{
    ClockBoxes clock;
    clock.day.SetText("1");
    clock.hours.SetText("60");
    clock.seconds.SetText("30");
    ScriptedBoxes boxes;
    boxes.Expect("Attention: Insert two digits");
    boxes.Expect("Attention: Invalid value");
    CheckOf("Text4a").left(clock, boxes);
}

TEST(ClockChecks, OneDigitIsTooFewInEveryFieldOfTwo)
{
    ClockBoxes clock;
    clock.year.SetText("7");
    ScriptedBoxes boxes;
    boxes.Expect("Attention: Insert two digits");
    CheckOf("Text2a").left(clock, boxes);
    EXPECT_EQ(clock.year.Text(), "7");
}

struct DelayCase {
    const char* typed;
    const char* box;
    const char* left;
};

TEST(DelayCheck, HoldsTheDelayBetweenThreeAndNine)
{
    for (const DelayCase& row :
         {DelayCase{"2", "Attention: Delay is too low", "3"},
          DelayCase{"", "Attention: Delay is too low", "3"},
          DelayCase{"x", "Attention: Delay is too low", "3"}, DelayCase{"3", nullptr, "3"},
          DelayCase{"09", nullptr, "09"}, DelayCase{"9.5", "Attention: Delay is too high", "9"},
          DelayCase{"12", "Attention: Delay is too high", "9"}}) {
        TextBox delay(6, row.typed);
        ScriptedBoxes boxes;
        if (row.box != nullptr) boxes.Expect(row.box);
        panel::LeaveDelay(delay, boxes);
        EXPECT_EQ(delay.Text(), row.left) << row.typed;
    }
}

} // namespace
} // namespace tarvex::tests
