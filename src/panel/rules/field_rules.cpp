#include "panel/rules/field_rules.h"

#include "core/code_page.h"
#include "core/conversion.h"

#include <algorithm>
#include <array>
#include <string>

namespace tarvex::panel
{

namespace
{

using enum HeaderBox;

constexpr std::string_view kInvalidDepth = "Attention: Invalid DEPTH";
constexpr std::string_view kInvalidValue = "Attention: Invalid value";

// The deepest survey, in tenths of a metre: the unit has pages for 200 steps.
constexpr double kDeepestInHalfMetres = 1000;
constexpr double kDeepestInMetres = 2000;

void CheckBlockNumber(const TextBox& box, MessageBoxes& messages)
{
    if (box.Text().empty()) messages.Critical("Attention: Insert block number");
    if (NumericValue(box.Text()) < 0) messages.Critical("Attention: Incorrect block number");
    if (NumericValue(box.Text()) > kLastBlockIndex)
        messages.Critical("Attention: Incorrect block number");
}

void FillAsFieldText(HeaderBoxes& boxes, HeaderBox box)
{
    const std::size_t width = RowOf(box).width;
    const std::string padded = boxes[box].Text() + std::string(width, ' ');
    boxes[box].SetText(code_page::Capitals(padded.substr(0, width)));
}

void RefuseDepth(ControlPanel& panel, MessageBoxes& messages, std::string_view deepestMetres)
{
    messages.Critical(kInvalidDepth);
    panel.header[DepthMetres].SetText(deepestMetres);
    panel.header[DepthTenths].SetText("0");
}

/// Warns and falls back to `fallback` unless the box holds that or `other`.
void AllowTwoValues(TextBox& box, std::string_view other, std::string_view fallback,
                    std::string_view warning, MessageBoxes& messages)
{
    if (box.Text() == other || box.Text() == fallback) return;
    messages.Critical(warning);
    box.SetText(fallback);
}

void ShowDownloadBlock(ControlPanel& panel, const WorkingState& state)
{
    panel.downloadBlock.SetText(TwoDigits(state.downloadBlock));
}

constexpr std::array kRules = {
    FieldRuleRow{"Text2", LeaveBlockNumber},
    FieldRuleRow{RowOf(Client).control, LeaveClient},
    FieldRuleRow{RowOf(Site).control, LeaveSite},
    FieldRuleRow{RowOf(Tube).control, LeaveTube},
    FieldRuleRow{RowOf(DepthMetres).control, LeaveDepthMetres},
    FieldRuleRow{RowOf(DepthTenths).control, LeaveDepthTenths},
    FieldRuleRow{RowOf(Step).control, LeaveStep},
    FieldRuleRow{RowOf(Guides).control, LeaveGuides},
    FieldRuleRow{RowOf(North).control, LeaveNorth},
    FieldRuleRow{RowOf(Readout).control, LeaveReadout},
    FieldRuleRow{"numblocco", LeaveDownloadBlock},
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

void LeaveBlockNumber(ControlPanel& panel, WorkingState&, MessageBoxes& messages)
{
    CheckBlockNumber(panel.blockNumber, messages);
}

void LeaveDownloadBlock(ControlPanel& panel, WorkingState&, MessageBoxes& messages)
{
    CheckBlockNumber(panel.downloadBlock, messages);
}

void LeaveClient(ControlPanel& panel, WorkingState&, MessageBoxes&)
{
    FillAsFieldText(panel.header, Client);
}

void LeaveSite(ControlPanel& panel, WorkingState&, MessageBoxes&)
{
    FillAsFieldText(panel.header, Site);
}

void LeaveTube(ControlPanel& panel, WorkingState&, MessageBoxes&)
{
    FillAsFieldText(panel.header, Tube);
}

void LeaveDepthMetres(ControlPanel& panel, WorkingState& state, MessageBoxes& messages)
{
    panel.header[DepthMetres].SetText(Right("000" + panel.header[DepthMetres].Text(), 3));
    state.depthText = panel.header[DepthMetres].Text() + panel.header[DepthTenths].Text();
    if (NumericValue(state.depthText) > kDeepestInHalfMetres && panel.header[Step].Text() == "0")
        RefuseDepth(panel, messages, "100");
    if (NumericValue(state.depthText) > kDeepestInMetres && panel.header[Step].Text() == "1")
        RefuseDepth(panel, messages, "200");
}

void LeaveDepthTenths(ControlPanel& panel, WorkingState& state, MessageBoxes& messages)
{
    AllowTwoValues(panel.header[DepthTenths], "5", "0", kInvalidDepth, messages);
    LeaveDepthMetres(panel, state, messages);
}

void LeaveStep(ControlPanel& panel, WorkingState&, MessageBoxes& messages)
{
    AllowTwoValues(panel.header[Step], "1", "0", kInvalidValue, messages);
}

void LeaveGuides(ControlPanel& panel, WorkingState&, MessageBoxes& messages)
{
    AllowTwoValues(panel.header[Guides], "4", "2", kInvalidValue, messages);
}

void LeaveNorth(ControlPanel& panel, WorkingState&, MessageBoxes& messages)
{
    if (panel.header[North].Text().size() >= 4) return;
    messages.Critical(kInvalidValue);
    panel.header[North].SetText("+000");
}

void LeaveReadout(ControlPanel& panel, WorkingState&, MessageBoxes&)
{
    panel.header[Readout].SetText(Right("00" + panel.header[Readout].Text(), 2));
}

void ToggleDepthTenths(ControlPanel& panel)
{
    panel.header[DepthTenths].SetText(panel.header[DepthTenths].Text() == "0" ? "5" : "0");
}

void SelectTab(ControlPanel& panel, int index)
{
    const std::array frames = {&panel.headerFrame, &panel.downloadFrame, &panel.setupFrame};
    const auto selected = static_cast<std::size_t>(index - 1);
    if (selected >= frames.size()) return;
    frames[selected]->Show();
    for (Control* frame : frames)
        if (frame != frames[selected]) frame->Hide();
}

void StepDownloadBlockUp(ControlPanel& panel, WorkingState& state)
{
    state.downloadBlock = std::min(state.downloadBlock + 1, kBlockCount);
    ShowDownloadBlock(panel, state);
}

void StepDownloadBlockDown(ControlPanel& panel, WorkingState& state)
{
    state.downloadBlock = std::max(state.downloadBlock - 1, 1);
    ShowDownloadBlock(panel, state);
}

} // namespace tarvex::panel
