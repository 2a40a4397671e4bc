#include "panel/field_rules.h"

#include "support/scripted_boxes.h"

#include <gtest/gtest.h>

namespace tarvex::tests
{

using namespace panel;

namespace
{

constexpr const char* kInvalidDepth = "Attention: Invalid DEPTH";
constexpr const char* kInvalidValue = "Attention: Invalid value";
constexpr const char* kNoBlock = "Attention: Insert block number";
constexpr const char* kWrongBlock = "Attention: Incorrect block number";

struct RuleCase {
    const char* name;
    TextBox Panel::*box;
    FieldRule leave;
    std::string typed;
    std::string becomes;
    const char* warning; // null for none
};

void PrintTo(const RuleCase& row, std::ostream* out)
{
    *out << row.name;
}

class OneFieldRule : public ::testing::TestWithParam<RuleCase>
{
};

const RuleCase kCases[] = {
    {"EmptyBlockNumber", &Panel::Text2, LeaveText2, "", "", kNoBlock},
    {"Block00", &Panel::Text2, LeaveText2, "00", "00", nullptr},
    {"Block01", &Panel::Text2, LeaveText2, "01", "01", nullptr},
    {"Block29", &Panel::Text2, LeaveText2, "29", "29", nullptr},
    {"Block30", &Panel::Text2, LeaveText2, "30", "30", kWrongBlock},
    {"Block99", &Panel::Text2, LeaveText2, "99", "99", kWrongBlock},
    {"BlockBelowZero", &Panel::Text2, LeaveText2, "-1", "-1", kWrongBlock},
    {"BlockMinusZero", &Panel::Text2, LeaveText2, "-0", "-0", nullptr},
    {"BlockOfLetters", &Panel::Text2, LeaveText2, "ab", "ab", nullptr},
    {"BlockOfBlanks", &Panel::Text2, LeaveText2, "  ", "  ", nullptr},
    {"EmptyDownloadBlock", &Panel::numblocco, LeaveNumblocco, "", "", kNoBlock},
    {"DownloadBlock7", &Panel::numblocco, LeaveNumblocco, "7", "7", nullptr},
    {"DownloadBlock29", &Panel::numblocco, LeaveNumblocco, "29", "29", nullptr},
    {"DownloadBlock30", &Panel::numblocco, LeaveNumblocco, "30", "30", kWrongBlock},
    {"DownloadBlockBelowZero", &Panel::numblocco, LeaveNumblocco, "-9", "-9", kWrongBlock},
    {"ClientShort", &Panel::Text3, LeaveText3, "rossi", "ROSSI   ", nullptr},
    {"ClientEmpty", &Panel::Text3, LeaveText3, "", "        ", nullptr},
    {"ClientFull", &Panel::Text3, LeaveText3, "Dell'Oro", "DELL'ORO", nullptr},
    {"ClientLeadingBlank", &Panel::Text3, LeaveText3, " a", " A      ", nullptr},
    {"ClientAccents", &Panel::Text3, LeaveText3, "\xE0\xFF\xDF\xB5", "\xC0\x9F\xDF\xB5    ",
     nullptr},
    {"SiteShort", &Panel::Text4, LeaveText4, "diga 1", "DIGA 1  ", nullptr},
    {"SiteEmpty", &Panel::Text4, LeaveText4, "", "        ", nullptr},
    {"TubeShort", &Panel::Text5, LeaveText5, "t7", "T7  ", nullptr},
    {"TubeFull", &Panel::Text5, LeaveText5, "i-12", "I-12", nullptr},
    {"TubeEmpty", &Panel::Text5, LeaveText5, "", "    ", nullptr},
    {"Step0", &Panel::Text7, LeaveText7, "0", "0", nullptr},
    {"Step1", &Panel::Text7, LeaveText7, "1", "1", nullptr},
    {"Step2", &Panel::Text7, LeaveText7, "2", "0", kInvalidValue},
    {"StepEmpty", &Panel::Text7, LeaveText7, "", "0", kInvalidValue},
    {"Guides2", &Panel::Text8, LeaveText8, "2", "2", nullptr},
    {"Guides4", &Panel::Text8, LeaveText8, "4", "4", nullptr},
    {"Guides3", &Panel::Text8, LeaveText8, "3", "2", kInvalidValue},
    {"GuidesEmpty", &Panel::Text8, LeaveText8, "", "2", kInvalidValue},
    {"NorthThreeCharacters", &Panel::Text9, LeaveText9, "+12", "+000", kInvalidValue},
    {"NorthEmpty", &Panel::Text9, LeaveText9, "", "+000", kInvalidValue},
    {"NorthOfLetters", &Panel::Text9, LeaveText9, "nord", "nord", nullptr},
    {"NorthBeyondTheCircle", &Panel::Text9, LeaveText9, "-999", "-999", nullptr},
    {"ReadoutEmpty", &Panel::Text10, LeaveText10, "", "00", nullptr},
    {"ReadoutOneDigit", &Panel::Text10, LeaveText10, "7", "07", nullptr},
    {"ReadoutTwoDigits", &Panel::Text10, LeaveText10, "12", "12", nullptr},
    {"ReadoutLetter", &Panel::Text10, LeaveText10, "x", "0x", nullptr},
};

TEST_P(OneFieldRule, GivesItsTextAndItsWarning)
{
    const RuleCase& row = GetParam();
    Panel panel;
    WorkingState state;
    ScriptedBoxes boxes;
    (panel.*row.box).SetText(row.typed);
    if (row.warning != nullptr) boxes.Expect(row.warning);

    row.leave(panel, state, boxes);

    EXPECT_EQ((panel.*row.box).Text(), row.becomes);
    EXPECT_EQ(boxes.shown, row.warning == nullptr ? 0 : 1);
}

INSTANTIATE_TEST_SUITE_P(Fields, OneFieldRule, ::testing::ValuesIn(kCases),
                         [](const auto& row) { return row.param.name; });

struct DepthCase {
    const char* name;
    std::string metres;
    std::string tenths;
    std::string step;
    std::string metresBecome;
    std::string tenthsBecome;
    std::string joined; // DepthText
    int warnings;
};

void PrintTo(const DepthCase& row, std::ostream* out)
{
    *out << row.name;
}

class DepthRule : public ::testing::TestWithParam<DepthCase>
{
};

const DepthCase kDepths[] = {
    {"ZerosComeFromTheLeft", "5", "0", "0", "005", "0", "0050", 0},
    {"Empty", "", "0", "0", "000", "0", "0000", 0},
    {"DeepestHalfMetres", "100", "0", "0", "100", "0", "1000", 0},
    {"JustTooDeepInHalfMetres", "100", "5", "0", "100", "0", "1005", 1},
    {"TooDeepInHalfMetres", "120", "0", "0", "100", "0", "1200", 1},
    {"AllowedInMetres", "120", "0", "1", "120", "0", "1200", 0},
    {"DeepestInMetres", "200", "0", "1", "200", "0", "2000", 0},
    {"JustTooDeepInMetres", "200", "5", "1", "200", "0", "2005", 1},
    {"TooDeepInMetres", "999", "5", "1", "200", "0", "9995", 1},
    {"NoLimitWithAnotherStep", "999", "5", "7", "999", "5", "9995", 0},
    {"NoLimitWithoutAStep", "999", "5", "", "999", "5", "9995", 0},
    {"Letters", "abc", "0", "0", "abc", "0", "abc0", 0},
    {"BlanksBehindDigits", "9  ", "0", "0", "9  ", "0", "9  0", 0},
    {"TenthsAreNotLookedAtHere", "1", "7", "0", "001", "7", "0017", 0},
    {"WithoutTenths", "150", "", "0", "150", "", "150", 0},
};

TEST_P(DepthRule, HoldsTheDepthWithinItsStep)
{
    const DepthCase& row = GetParam();
    Panel panel;
    WorkingState state;
    ScriptedBoxes boxes;
    panel.Text6.SetText(row.metres);
    panel.Text13.SetText(row.tenths);
    panel.Text7.SetText(row.step);
    for (int i = 0; i < row.warnings; ++i)
        boxes.Expect(kInvalidDepth);

    LeaveText6(panel, state, boxes);

    EXPECT_EQ(panel.Text6.Text(), row.metresBecome);
    EXPECT_EQ(panel.Text13.Text(), row.tenthsBecome);
    EXPECT_EQ(state.DepthText, row.joined);
    EXPECT_EQ(boxes.shown, row.warnings);
}

INSTANTIATE_TEST_SUITE_P(Depths, DepthRule, ::testing::ValuesIn(kDepths),
                         [](const auto& row) { return row.param.name; });

class FieldRulesTest : public ::testing::Test
{
protected:
    Panel panel;
    WorkingState state;
    ScriptedBoxes boxes;
};

TEST_F(FieldRulesTest, TenthsOtherThan5And0WarnAndBecome0BeforeTheDepthIsJoined)
{
    panel.Text6.SetText("12");
    panel.Text13.SetText("3");
    boxes.Expect(kInvalidDepth, [this] { EXPECT_EQ(panel.Text13.Text(), "3"); });
    LeaveText13(panel, state, boxes);
    EXPECT_EQ(panel.Text13.Text(), "0");
    EXPECT_EQ(panel.Text6.Text(), "012");
    EXPECT_EQ(state.DepthText, "0120");
}

TEST_F(FieldRulesTest, TenthsAndDepthCanWarnOneAfterTheOther)
{
    panel.Text6.SetText("150");
    panel.Text13.SetText("");
    panel.Text7.SetText("0");
    boxes.Expect(kInvalidDepth, [this] { EXPECT_EQ(panel.Text6.Text(), "150"); });
    boxes.Expect(kInvalidDepth, [this] { EXPECT_EQ(state.DepthText, "1500"); });
    LeaveText13(panel, state, boxes);
    EXPECT_EQ(panel.Text6.Text(), "100");
    EXPECT_EQ(panel.Text13.Text(), "0");
}

TEST_F(FieldRulesTest, FiveTenthsPass)
{
    panel.Text6.SetText("99");
    panel.Text13.SetText("5");
    panel.Text7.SetText("0");
    LeaveText13(panel, state, boxes);
    EXPECT_EQ(state.DepthText, "0995");
    EXPECT_EQ(panel.Text13.Text(), "5");
}

TEST_F(FieldRulesTest, AFieldIsCorrectedOnlyAfterItsBox)
{
    panel.Text7.SetText("2");
    panel.Text8.SetText("8");
    panel.Text9.SetText("+12");
    boxes.Expect(kInvalidValue, [this] { EXPECT_EQ(panel.Text7.Text(), "2"); });
    LeaveText7(panel, state, boxes);
    boxes.Expect(kInvalidValue, [this] { EXPECT_EQ(panel.Text8.Text(), "8"); });
    LeaveText8(panel, state, boxes);
    boxes.Expect(kInvalidValue, [this] { EXPECT_EQ(panel.Text9.Text(), "+12"); });
    LeaveText9(panel, state, boxes);
    panel.Text6.SetText("300");
    boxes.Expect(kInvalidDepth, [this] { EXPECT_EQ(panel.Text6.Text(), "300"); });
    LeaveText6(panel, state, boxes);
}

TEST_F(FieldRulesTest, ABlockNumberRefusedLeavesTheBlockVariables)
{
    state.CurrentBlock = 7;
    state.DownloadBlock = 8;
    panel.Text2.SetText("30");
    panel.numblocco.SetText("30");
    boxes.Expect(kWrongBlock);
    LeaveText2(panel, state, boxes);
    boxes.Expect(kWrongBlock);
    LeaveNumblocco(panel, state, boxes);
    EXPECT_EQ(state.CurrentBlock, 7);
    EXPECT_EQ(state.DownloadBlock, 8);
}

TEST_F(FieldRulesTest, AStepChangedAboveADepthIsNotLookedAt)
{
    panel.Text6.SetText("150");
    panel.Text13.SetText("0");
    panel.Text7.SetText("0");
    LeaveText7(panel, state, boxes);
    EXPECT_EQ(panel.Text6.Text(), "150");
}

TEST_F(FieldRulesTest, DoubleClickTogglesTheTenths)
{
    const std::pair<const char*, const char*> rows[] = {
        {"0", "5"}, {"5", "0"}, {"", "0"}, {"7", "0"}, {" ", "0"}};
    for (const auto& [before, after] : rows) {
        panel.Text13.SetText(before);
        ToggleText13(panel);
        EXPECT_EQ(panel.Text13.Text(), after) << "from '" << before << "'";
    }
}

TEST_F(FieldRulesTest, EachTabShowsItsFrameAlone)
{
    const auto shown = [this] {
        return std::string(panel.Frame1.Visible() ? "1" : "") +
               (panel.Frame2.Visible() ? "2" : "") + (panel.Frame3.Visible() ? "3" : "");
    };
    EXPECT_EQ(shown(), "1");
    SelectTab(panel, 2);
    EXPECT_EQ(shown(), "2");
    SelectTab(panel, 3);
    EXPECT_EQ(shown(), "3");
    SelectTab(panel, 1);
    EXPECT_EQ(shown(), "1");
    SelectTab(panel, 0);
    SelectTab(panel, 4);
    EXPECT_EQ(shown(), "1");
}

TEST_F(FieldRulesTest, DownloadBlockStepsWithin1And30)
{
    state.DownloadBlock = 29;
    StepDownloadBlockUp(panel, state);
    EXPECT_EQ(panel.numblocco.Text(), "30");
    StepDownloadBlockUp(panel, state);
    EXPECT_EQ(panel.numblocco.Text(), "30");
    EXPECT_EQ(state.DownloadBlock, 30);
    state.DownloadBlock = 2;
    StepDownloadBlockDown(panel, state);
    EXPECT_EQ(panel.numblocco.Text(), "01");
    StepDownloadBlockDown(panel, state);
    EXPECT_EQ(panel.numblocco.Text(), "01");
    EXPECT_EQ(state.DownloadBlock, 1);
}

TEST_F(FieldRulesTest, ADownloadBlockTypedIsNotSteppedFrom)
{
    panel.numblocco.SetText("20");
    StepDownloadBlockUp(panel, state);
    EXPECT_EQ(panel.numblocco.Text(), "02");
}

TEST_F(FieldRulesTest, TheFieldsWithoutARuleHaveNone)
{
    for (const char* field : {"Text1", "Text11", "Text12", "Text15", "Text17", "Text16rt",
                              "Text13a", "Text1a", "Text2a", "Text14a", "Text3a", "Text4a"})
        EXPECT_EQ(RuleOf(field), nullptr) << field;
    EXPECT_EQ(RuleOf("Text2"), LeaveText2);
    EXPECT_EQ(RuleOf("Text13"), LeaveText13);
    EXPECT_EQ(FieldRules().size(), 11U);
}

} // namespace

} // namespace tarvex::tests
