#pragma once

#include "core/message_boxes.h"
#include "core/panel.h"
#include "core/working_state.h"

#include <span>
#include <string_view>

namespace tarvex::panel
{

/// The checks of the operator's fields. Each runs when its field has lost the focus; it warns with
/// a critical box and may write a corrected text back, but never holds the operator. A failing step
/// goes up.
using FieldRule = void (*)(Panel& panel, WorkingState& state, MessageBoxes& boxes);

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
void LeaveText2(Panel& panel, WorkingState& state, MessageBoxes& boxes);

/// `numblocco`: as `Text2`.
void LeaveNumblocco(Panel& panel, WorkingState& state, MessageBoxes& boxes);

/// `Text3`, `Text4` (8 characters) and `Text5` (4): filled with blanks, in capitals.
void LeaveText3(Panel& panel, WorkingState& state, MessageBoxes& boxes);
void LeaveText4(Panel& panel, WorkingState& state, MessageBoxes& boxes);
void LeaveText5(Panel& panel, WorkingState& state, MessageBoxes& boxes);

/// `Text6`: zeros on its left; the depth, in tenths of a metre, is joined in `DepthText` and held
/// at 1000 with step "0" and at 2000 with step "1".
void LeaveText6(Panel& panel, WorkingState& state, MessageBoxes& boxes);

/// `Text13`: "5" or "0", then as `Text6`.
void LeaveText13(Panel& panel, WorkingState& state, MessageBoxes& boxes);

/// `Text7`: "1" or "0". The depth is not looked at.
void LeaveText7(Panel& panel, WorkingState& state, MessageBoxes& boxes);

/// `Text8`: "4" or "2".
void LeaveText8(Panel& panel, WorkingState& state, MessageBoxes& boxes);

/// `Text9`: four characters of any kind.
void LeaveText9(Panel& panel, WorkingState& state, MessageBoxes& boxes);

/// `Text10`: two characters, zeros on the left.
void LeaveText10(Panel& panel, WorkingState& state, MessageBoxes& boxes);

/// A double click on `Text13`: half a metre on or off.
void ToggleText13(Panel& panel);

/// A click on the tab of that index, from 1: shows its frame and hides the others.
void SelectTab(Panel& panel, int index);

/// `DownloadBlock` one up or down, held within 1 to 30, and shown in `numblocco`. A number typed
/// there does not count here.
void StepDownloadBlockUp(Panel& panel, WorkingState& state);
void StepDownloadBlockDown(Panel& panel, WorkingState& state);

} // namespace tarvex::panel
