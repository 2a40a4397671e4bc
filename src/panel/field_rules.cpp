#include "panel/field_rules.h"

#include "core/code_page.h"
#include "core/conversion.h"

#include <algorithm>
#include <array>
#include <string>

namespace tarvex::panel
{

namespace
{

constexpr std::string_view kInvalidDepth = "Attention: Invalid DEPTH";
constexpr std::string_view kInvalidValue = "Attention: Invalid value";

// The deepest survey, in tenths of a metre: the unit has pages for 200 steps.
constexpr double kDeepestInHalfMetres = 1000;
constexpr double kDeepestInMetres = 2000;

void CheckBlockNumber(const TextBox& box, MessageBoxes& boxes)
{
    if (box.Text().empty()) boxes.Critical("Attention: Insert block number");
    if (NumericValue(box.Text()) < 0) boxes.Critical("Attention: Incorrect block number");
    if (NumericValue(box.Text()) > 29) boxes.Critical("Attention: Incorrect block number");
}

void FillAsFieldText(TextBox& box, std::size_t width)
{
    const std::string padded = box.Text() + std::string(width, ' ');
    box.SetText(code_page::Capitals(padded.substr(0, width)));
}

void RefuseDepth(Panel& panel, MessageBoxes& boxes, std::string_view deepestMetres)
{
    boxes.Critical(kInvalidDepth);
    panel.Text6.SetText(deepestMetres);
    panel.Text13.SetText("0");
}

/// Warns and falls back to `fallback` unless the box holds that or `other`.
void AllowTwoValues(TextBox& box, std::string_view other, std::string_view fallback,
                    std::string_view warning, MessageBoxes& boxes)
{
    if (box.Text() == other || box.Text() == fallback) return;
    boxes.Critical(warning);
    box.SetText(fallback);
}

void ShowDownloadBlock(Panel& panel, const WorkingState& state)
{
    panel.numblocco.SetText(TwoDigits(state.DownloadBlock));
}

constexpr std::array kRules = {
    FieldRuleRow{"Text2", LeaveText2},         FieldRuleRow{"Text3", LeaveText3},
    FieldRuleRow{"Text4", LeaveText4},         FieldRuleRow{"Text5", LeaveText5},
    FieldRuleRow{"Text6", LeaveText6},         FieldRuleRow{"Text13", LeaveText13},
    FieldRuleRow{"Text7", LeaveText7},         FieldRuleRow{"Text8", LeaveText8},
    FieldRuleRow{"Text9", LeaveText9},         FieldRuleRow{"Text10", LeaveText10},
    FieldRuleRow{"numblocco", LeaveNumblocco},
};

} // namespace

std::span<const FieldRuleRow> FieldRules()
{
    return kRules;
}

FieldRule RuleOf(std::string_view field)
{
    const auto row = std::ranges::find(kRules, field, &FieldRuleRow::field);
    return row == kRules.end() ? nullptr : row->leave;
}

void LeaveText2(Panel& panel, WorkingState&, MessageBoxes& boxes)
{
    CheckBlockNumber(panel.Text2, boxes);
}

void LeaveNumblocco(Panel& panel, WorkingState&, MessageBoxes& boxes)
{
    CheckBlockNumber(panel.numblocco, boxes);
}

void LeaveText3(Panel& panel, WorkingState&, MessageBoxes&)
{
    FillAsFieldText(panel.Text3, 8);
}

void LeaveText4(Panel& panel, WorkingState&, MessageBoxes&)
{
    FillAsFieldText(panel.Text4, 8);
}

void LeaveText5(Panel& panel, WorkingState&, MessageBoxes&)
{
    FillAsFieldText(panel.Text5, 4);
}

void LeaveText6(Panel& panel, WorkingState& state, MessageBoxes& boxes)
{
    panel.Text6.SetText(Right("000" + panel.Text6.Text(), 3));
    state.DepthText = panel.Text6.Text() + panel.Text13.Text();
    if (NumericValue(state.DepthText) > kDeepestInHalfMetres && panel.Text7.Text() == "0")
        RefuseDepth(panel, boxes, "100");
    if (NumericValue(state.DepthText) > kDeepestInMetres && panel.Text7.Text() == "1")
        RefuseDepth(panel, boxes, "200");
}

void LeaveText13(Panel& panel, WorkingState& state, MessageBoxes& boxes)
{
    AllowTwoValues(panel.Text13, "5", "0", kInvalidDepth, boxes);
    LeaveText6(panel, state, boxes);
}

void LeaveText7(Panel& panel, WorkingState&, MessageBoxes& boxes)
{
    AllowTwoValues(panel.Text7, "1", "0", kInvalidValue, boxes);
}

void LeaveText8(Panel& panel, WorkingState&, MessageBoxes& boxes)
{
    AllowTwoValues(panel.Text8, "4", "2", kInvalidValue, boxes);
}

void LeaveText9(Panel& panel, WorkingState&, MessageBoxes& boxes)
{
    if (panel.Text9.Text().size() >= 4) return;
    boxes.Critical(kInvalidValue);
    panel.Text9.SetText("+000");
}

void LeaveText10(Panel& panel, WorkingState&, MessageBoxes&)
{
    panel.Text10.SetText(Right("00" + panel.Text10.Text(), 2));
}

void ToggleText13(Panel& panel)
{
    panel.Text13.SetText(panel.Text13.Text() == "0" ? "5" : "0");
}

void SelectTab(Panel& panel, int index)
{
    const std::array frames = {&panel.Frame1, &panel.Frame2, &panel.Frame3};
    const auto selected = static_cast<std::size_t>(index - 1);
    if (selected >= frames.size()) return;
    frames[selected]->Show();
    for (Control* frame : frames)
        if (frame != frames[selected]) frame->Hide();
}

void StepDownloadBlockUp(Panel& panel, WorkingState& state)
{
    state.DownloadBlock = std::min(state.DownloadBlock + 1, 30);
    ShowDownloadBlock(panel, state);
}

void StepDownloadBlockDown(Panel& panel, WorkingState& state)
{
    state.DownloadBlock = std::max(state.DownloadBlock - 1, 1);
    ShowDownloadBlock(panel, state);
}

} // namespace tarvex::panel
