#pragma once

#include "panel/window/commands.h"

#include <string>
#include <string_view>

namespace tarvex::tests
{

/// What the page of controls says of a command.
struct CommandEntry {
    panel::Command command;
    std::string_view name;   ///< of the function
    std::string_view source; ///< the file below src/ that holds it
};

/// The entry of a command other than None; fails with std::out_of_range when the page has none.
const CommandEntry& EntryOf(panel::Command command);

/// docs/controls.md, made from the window's table.
std::string ControlPage();

} // namespace tarvex::tests
