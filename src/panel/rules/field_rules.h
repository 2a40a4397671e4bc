#pragma once

#include "core/control_panel.h"
#include "core/message_boxes.h"
#include "core/working_state.h"

#include <span>
#include <string_view>

namespace tarvex::panel
{

/// The checks of the operator's fields. Each runs when its field has lost the focus; it warns with
/// a critical box and may write a corrected text back, but never holds the operator. A failing step
/// goes up.
using FieldRule = void (*)(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);

/// A field and what happens when it is left.
struct FieldRuleRow {
    std::string_view field; ///< the control's name
    FieldRule leave;
};

/// Every field that has a rule.
std::span<const FieldRuleRow> FieldRules();

/// The rule of the control of that name, or null.
FieldRule RuleOf(std::string_view field);

/// `Text2`: a box when it is empty, below 0 or above 29. Nothing else changes, so that 30, which
/// the unit has, is warned of and still works.
void LeaveBlockNumber(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);

/// `numblocco`: as `Text2`.
void LeaveDownloadBlock(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);

/// `Text3`, `Text4` (8 characters) and `Text5` (4): filled with blanks, in capitals.
void LeaveClient(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);
void LeaveSite(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);
void LeaveTube(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);

/// `Text6`: zeros on its left; the depth, in tenths of a metre, is joined in `depthText` and held
/// at 1000 with step "0" and at 2000 with step "1".
void LeaveDepthMetres(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);

/// `Text13`: "5" or "0", then as `Text6`.
void LeaveDepthTenths(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);

/// `Text7`: "1" or "0". The depth is not looked at.
void LeaveStep(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);

/// `Text8`: "4" or "2".
void LeaveGuides(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);

/// `Text9`: four characters of any kind.
void LeaveNorth(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);

/// `Text10`: two characters, zeros on the left.
void LeaveReadout(ControlPanel& panel, WorkingState& state, MessageBoxes& messages);

/// A double click on `Text13`: half a metre on or off.
void ToggleDepthTenths(ControlPanel& panel);

/// A click on the tab of that index, from 1: shows its frame and hides the others.
void SelectTab(ControlPanel& panel, int index);

/// `downloadBlock` one up or down, held within 1 to 30, and shown in `numblocco`. A number typed
/// there does not count here.
void StepDownloadBlockUp(ControlPanel& panel, WorkingState& state);
void StepDownloadBlockDown(ControlPanel& panel, WorkingState& state);

} // namespace tarvex::panel
