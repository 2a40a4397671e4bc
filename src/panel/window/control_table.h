#pragma once

#include "core/control_panel.h"
#include "panel/window/commands.h"

#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace tarvex::panel
{

enum class ControlKind {
    Heading,
    Label,
    Hint, ///< a label after a box that says what it may hold
    TextBox,
    Button,
    Option,
    Frame,
    TabStrip,
    Tab,
    Picture,
    Shape
};

/// The part of the ControlPanel that a control shows. Its maximum length, its first text, and
/// whether it starts hidden or disabled are found there.
using ModelOf = std::variant<std::monostate, Control ControlPanel::*, TextBox ControlPanel::*,
                             Picture ControlPanel::*, OptionGroup ControlPanel::*, HeaderBox,
                             CalibrationBox, TextBox ClockBoxes::*, Control WaitIndicator::*>;

/// One control of the main form. Texts are UTF-8.
struct ControlRow {
    std::string_view name; ///< the widget's object name
    ControlKind kind;
    std::string_view parent;    ///< the form or the frame that it is on; empty for the form itself
    std::string_view caption{}; ///< literal, blanks included; "&" would mark a mnemonic
    std::string_view toolTip{};
    std::string_view accessibleName{}; ///< where no caption says it
    std::string_view description{};    ///< what a person understands, in more words
    std::string_view of{};             ///< label and hint: the box they belong to; tab: its frame
    ModelOf model{};
    bool locked = false; ///< takes no typing: only the program sets it
    bool paced = false;  ///< may change many times a second: not each is shown
    bool later = false;  ///< changes while the unit waits: shown when the event queue runs
    Command command = Command::None;
};

/// All controls of the main form, the hidden ones too. The order of the rows is the order of the
/// Tab key.
std::span<const ControlRow> ControlTable();

/// The row of that name; fails with std::out_of_range when there is none.
const ControlRow& RowNamed(std::string_view name);

/// The row's text box in the model, or null.
TextBox* TextBoxOf(const ControlRow& row, ControlPanel& panel);

/// What shows, hides, enables or disables the control, or null when nothing does.
Control* ControlOf(const ControlRow& row, ControlPanel& panel);

/// True when the control is hidden at the start; a label hides with its box.
bool StartsHidden(const ControlRow& row);

/// What a person, or a screen reader, calls the control. It begins with the caption that is seen
/// on it, or beside it for a box, without blanks around and colon.
std::string_view AccessibleNameOf(const ControlRow& row);

/// What a screen reader says of the control besides, the hint beside a box included.
std::string AccessibleDescriptionOf(const ControlRow& row);

} // namespace tarvex::panel
