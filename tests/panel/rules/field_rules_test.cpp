#include "panel/rules/field_rules.h"

#include "support/scripted_boxes.h"

#include <gtest/gtest.h>

#include <variant>

namespace tarvex::tests
{

using namespace panel;
using enum HeaderBox;

namespace
{

constexpr const char* kInvalidDepth = "Attention: Invalid DEPTH";
constexpr const char* kInvalidValue = "Attention: Invalid value";
constexpr const char* kNoBlock = "Attention: Insert block number";
constexpr const char* kWrongBlock = "Attention: Incorrect block number";

struct RuleCase {
    const char* name;
    std::variant<TextBox ControlPanel::*, HeaderBox> box;
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
    {"EmptyBlockNumber", &ControlPanel::blockNumber, LeaveBlockNumber, "", "", kNoBlock},
    {"Block00", &ControlPanel::blockNumber, LeaveBlockNumber, "00", "00", nullptr},
    {"Block01", &ControlPanel::blockNumber, LeaveBlockNumber, "01", "01", nullptr},
    {"Block29", &ControlPanel::blockNumber, LeaveBlockNumber, "29", "29", nullptr},
    {"Block30", &ControlPanel::blockNumber, LeaveBlockNumber, "30", "30", kWrongBlock},
    {"Block99", &ControlPanel::blockNumber, LeaveBlockNumber, "99", "99", kWrongBlock},
    {"BlockBelowZero", &ControlPanel::blockNumber, LeaveBlockNumber, "-1", "-1", kWrongBlock},
    {"BlockMinusZero", &ControlPanel::blockNumber, LeaveBlockNumber, "-0", "-0", nullptr},
    {"BlockOfLetters", &ControlPanel::blockNumber, LeaveBlockNumber, "ab", "ab", nullptr},
    {"BlockOfBlanks", &ControlPanel::blockNumber, LeaveBlockNumber, "  ", "  ", nullptr},
    {"EmptyDownloadBlock", &ControlPanel::downloadBlock, LeaveDownloadBlock, "", "", kNoBlock},
    {"DownloadBlock7", &ControlPanel::downloadBlock, LeaveDownloadBlock, "7", "7", nullptr},
    {"DownloadBlock29", &ControlPanel::downloadBlock, LeaveDownloadBlock, "29", "29", nullptr},
    {"DownloadBlock30", &ControlPanel::downloadBlock, LeaveDownloadBlock, "30", "30", kWrongBlock},
    {"DownloadBlockBelowZero", &ControlPanel::downloadBlock, LeaveDownloadBlock, "-9", "-9",
     kWrongBlock},
    {"ClientShort", Client, LeaveClient, "rossi", "ROSSI   ", nullptr},
    {"ClientEmpty", Client, LeaveClient, "", "        ", nullptr},
    {"ClientFull", Client, LeaveClient, "Dell'Oro", "DELL'ORO", nullptr},
    {"ClientLeadingBlank", Client, LeaveClient, " a", " A      ", nullptr},
    {"ClientAccents", Client, LeaveClient, "\xE0\xFF\xDF\xB5", "\xC0\x9F\xDF\xB5    ", nullptr},
    {"SiteShort", Site, LeaveSite, "diga 1", "DIGA 1  ", nullptr},
    {"SiteEmpty", Site, LeaveSite, "", "        ", nullptr},
    {"TubeShort", Tube, LeaveTube, "t7", "T7  ", nullptr},
    {"TubeFull", Tube, LeaveTube, "i-12", "I-12", nullptr},
    {"TubeEmpty", Tube, LeaveTube, "", "    ", nullptr},
    {"Step0", Step, LeaveStep, "0", "0", nullptr},
    {"Step1", Step, LeaveStep, "1", "1", nullptr},
    {"Step2", Step, LeaveStep, "2", "0", kInvalidValue},
    {"StepEmpty", Step, LeaveStep, "", "0", kInvalidValue},
    {"Guides2", Guides, LeaveGuides, "2", "2", nullptr},
    {"Guides4", Guides, LeaveGuides, "4", "4", nullptr},
    {"Guides3", Guides, LeaveGuides, "3", "2", kInvalidValue},
    {"GuidesEmpty", Guides, LeaveGuides, "", "2", kInvalidValue},
    {"NorthThreeCharacters", North, LeaveNorth, "+12", "+000", kInvalidValue},
    {"NorthEmpty", North, LeaveNorth, "", "+000", kInvalidValue},
    {"NorthOfLetters", North, LeaveNorth, "nord", "nord", nullptr},
    {"NorthBeyondTheCircle", North, LeaveNorth, "-999", "-999", nullptr},
    {"ReadoutEmpty", Readout, LeaveReadout, "", "00", nullptr},
    {"ReadoutOneDigit", Readout, LeaveReadout, "7", "07", nullptr},
    {"ReadoutTwoDigits", Readout, LeaveReadout, "12", "12", nullptr},
    {"ReadoutLetter", Readout, LeaveReadout, "x", "0x", nullptr},
};

TextBox& BoxOf(ControlPanel& panel, const RuleCase& row)
{
    if (const auto* header = std::get_if<HeaderBox>(&row.box)) return panel.header[*header];
    return panel.*std::get<TextBox ControlPanel::*>(row.box);
}

TEST_P(OneFieldRule, GivesItsTextAndItsWarning)
{
    const RuleCase& row = GetParam();
    ControlPanel panel;
    WorkingState state;
    ScriptedBoxes boxes;
    BoxOf(panel, row).SetText(row.typed);
    if (row.warning != nullptr) boxes.Expect(row.warning);

    row.leave(panel, state, boxes);

    EXPECT_EQ(BoxOf(panel, row).Text(), row.becomes);
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
    ControlPanel panel;
    WorkingState state;
    ScriptedBoxes boxes;
    panel.header[DepthMetres].SetText(row.metres);
    panel.header[DepthTenths].SetText(row.tenths);
    panel.header[Step].SetText(row.step);
    for (int i = 0; i < row.warnings; ++i)
        boxes.Expect(kInvalidDepth);

    LeaveDepthMetres(panel, state, boxes);

    EXPECT_EQ(panel.header[DepthMetres].Text(), row.metresBecome);
    EXPECT_EQ(panel.header[DepthTenths].Text(), row.tenthsBecome);
    EXPECT_EQ(state.depthText, row.joined);
    EXPECT_EQ(boxes.shown, row.warnings);
}

INSTANTIATE_TEST_SUITE_P(Depths, DepthRule, ::testing::ValuesIn(kDepths),
                         [](const auto& row) { return row.param.name; });

class FieldRulesTest : public ::testing::Test
{
protected:
    ControlPanel panel;
    WorkingState state;
    ScriptedBoxes boxes;
};

TEST_F(FieldRulesTest, TenthsOtherThan5And0WarnAndBecome0BeforeTheDepthIsJoined)
{
    panel.header[DepthMetres].SetText("12");
    panel.header[DepthTenths].SetText("3");
    boxes.Expect(kInvalidDepth, [this] { EXPECT_EQ(panel.header[DepthTenths].Text(), "3"); });
    LeaveDepthTenths(panel, state, boxes);
    EXPECT_EQ(panel.header[DepthTenths].Text(), "0");
    EXPECT_EQ(panel.header[DepthMetres].Text(), "012");
    EXPECT_EQ(state.depthText, "0120");
}

TEST_F(FieldRulesTest, TenthsAndDepthCanWarnOneAfterTheOther)
{
    panel.header[DepthMetres].SetText("150");
    panel.header[DepthTenths].SetText("");
    panel.header[Step].SetText("0");
    boxes.Expect(kInvalidDepth, [this] { EXPECT_EQ(panel.header[DepthMetres].Text(), "150"); });
    boxes.Expect(kInvalidDepth, [this] { EXPECT_EQ(state.depthText, "1500"); });
    LeaveDepthTenths(panel, state, boxes);
    EXPECT_EQ(panel.header[DepthMetres].Text(), "100");
    EXPECT_EQ(panel.header[DepthTenths].Text(), "0");
}

TEST_F(FieldRulesTest, FiveTenthsPass)
{
    panel.header[DepthMetres].SetText("99");
    panel.header[DepthTenths].SetText("5");
    panel.header[Step].SetText("0");
    LeaveDepthTenths(panel, state, boxes);
    EXPECT_EQ(state.depthText, "0995");
    EXPECT_EQ(panel.header[DepthTenths].Text(), "5");
}

TEST_F(FieldRulesTest, AFieldIsCorrectedOnlyAfterItsBox)
{
    panel.header[Step].SetText("2");
    panel.header[Guides].SetText("8");
    panel.header[North].SetText("+12");
    boxes.Expect(kInvalidValue, [this] { EXPECT_EQ(panel.header[Step].Text(), "2"); });
    LeaveStep(panel, state, boxes);
    boxes.Expect(kInvalidValue, [this] { EXPECT_EQ(panel.header[Guides].Text(), "8"); });
    LeaveGuides(panel, state, boxes);
    boxes.Expect(kInvalidValue, [this] { EXPECT_EQ(panel.header[North].Text(), "+12"); });
    LeaveNorth(panel, state, boxes);
    panel.header[DepthMetres].SetText("300");
    boxes.Expect(kInvalidDepth, [this] { EXPECT_EQ(panel.header[DepthMetres].Text(), "300"); });
    LeaveDepthMetres(panel, state, boxes);
}

TEST_F(FieldRulesTest, ABlockNumberRefusedLeavesTheBlockVariables)
{
    state.currentBlock = 7;
    state.downloadBlock = 8;
    panel.blockNumber.SetText("30");
    panel.downloadBlock.SetText("30");
    boxes.Expect(kWrongBlock);
    LeaveBlockNumber(panel, state, boxes);
    boxes.Expect(kWrongBlock);
    LeaveDownloadBlock(panel, state, boxes);
    EXPECT_EQ(state.currentBlock, 7);
    EXPECT_EQ(state.downloadBlock, 8);
}

TEST_F(FieldRulesTest, AStepChangedAboveADepthIsNotLookedAt)
{
    panel.header[DepthMetres].SetText("150");
    panel.header[DepthTenths].SetText("0");
    panel.header[Step].SetText("0");
    LeaveStep(panel, state, boxes);
    EXPECT_EQ(panel.header[DepthMetres].Text(), "150");
}

TEST_F(FieldRulesTest, DoubleClickTogglesTheTenths)
{
    const std::pair<const char*, const char*> rows[] = {
        {"0", "5"}, {"5", "0"}, {"", "0"}, {"7", "0"}, {" ", "0"}};
    for (const auto& [before, after] : rows) {
        panel.header[DepthTenths].SetText(before);
        ToggleDepthTenths(panel);
        EXPECT_EQ(panel.header[DepthTenths].Text(), after) << "from '" << before << "'";
    }
}

TEST_F(FieldRulesTest, EachTabShowsItsFrameAlone)
{
    const auto shown = [this] {
        return std::string(panel.headerFrame.Visible() ? "1" : "") +
               (panel.downloadFrame.Visible() ? "2" : "") + (panel.setupFrame.Visible() ? "3" : "");
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
    state.downloadBlock = 29;
    StepDownloadBlockUp(panel, state);
    EXPECT_EQ(panel.downloadBlock.Text(), "30");
    StepDownloadBlockUp(panel, state);
    EXPECT_EQ(panel.downloadBlock.Text(), "30");
    EXPECT_EQ(state.downloadBlock, 30);
    state.downloadBlock = 2;
    StepDownloadBlockDown(panel, state);
    EXPECT_EQ(panel.downloadBlock.Text(), "01");
    StepDownloadBlockDown(panel, state);
    EXPECT_EQ(panel.downloadBlock.Text(), "01");
    EXPECT_EQ(state.downloadBlock, 1);
}

TEST_F(FieldRulesTest, ADownloadBlockTypedIsNotSteppedFrom)
{
    panel.downloadBlock.SetText("20");
    StepDownloadBlockUp(panel, state);
    EXPECT_EQ(panel.downloadBlock.Text(), "02");
}

TEST_F(FieldRulesTest, TheFieldsWithoutARuleHaveNone)
{
    for (const char* field : {"Text1", "Text11", "Text12", "Text15", "Text17", "Text16rt",
                              "Text13a", "Text1a", "Text2a", "Text14a", "Text3a", "Text4a"})
        EXPECT_EQ(RuleOf(field), nullptr) << field;
    EXPECT_EQ(RuleOf("Text2"), LeaveBlockNumber);
    EXPECT_EQ(RuleOf("Text13"), LeaveDepthTenths);
    EXPECT_EQ(FieldRules().size(), 11U);
}

} // namespace

} // namespace tarvex::tests
