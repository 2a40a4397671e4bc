#include "panel/control_table.h"
#include "panel/field_rules.h"

#include <algorithm>

namespace tarvex::panel
{

namespace
{

std::string_view KindName(ControlKind kind)
{
    switch (kind) {
    case ControlKind::Heading:
        return "heading";
    case ControlKind::Label:
        return "label";
    case ControlKind::Hint:
        return "hint";
    case ControlKind::TextBox:
        return "text box";
    case ControlKind::Button:
        return "button";
    case ControlKind::Option:
        return "option";
    case ControlKind::Frame:
        return "frame";
    case ControlKind::TabStrip:
        return "tab strip";
    case ControlKind::Tab:
        return "tab";
    case ControlKind::Picture:
        return "picture";
    case ControlKind::Shape:
        return "shape";
    }
    return "";
}

std::string Code(std::string_view text)
{
    return text.empty() ? std::string() : "`" + std::string(text) + "`";
}

/// In quotes, so that blanks at its ends are seen.
std::string Quoted(std::string_view text)
{
    return text.empty() ? std::string() : Code("\"" + std::string(text) + "\"");
}

void Add(std::string& list, const std::string& item)
{
    if (!list.empty()) list += ", ";
    list += item;
}

std::string AtStart(const ControlRow& row)
{
    Panel panel;
    std::string state;
    if (StartsHidden(row)) Add(state, "hidden");
    const Control* control = ControlOf(row, panel);
    if (control != nullptr && !control->Enabled()) Add(state, "disabled");
    if (row.locked) Add(state, "locked");
    const TextBox* box = TextBoxOf(row, panel);
    if (box != nullptr && !box->Text().empty()) Add(state, Quoted(box->Text()));
    return state;
}

std::string Length(const ControlRow& row)
{
    Panel panel;
    const TextBox* box = TextBoxOf(row, panel);
    if (box == nullptr || box->MaximumLength() == TextBox::kAnyLength) return {};
    return std::to_string(box->MaximumLength());
}

std::string CommandCell(const ControlRow& row)
{
    if (row.command == Command::None) return {};
    const CommandRow& command = RowOf(row.command);
    return Code(command.name) + (command.run == nullptr ? ", not built" : "");
}

std::string SourceCell(const ControlRow& row)
{
    if (!IsBuilt(row.command)) return {};
    return Code("src/" + std::string(RowOf(row.command).source));
}

std::string Line(std::initializer_list<std::string> cells)
{
    std::string line = "|";
    for (const std::string& cell : cells)
        line += cell.empty() ? " |" : " " + cell + " |";
    return line + "\n";
}

std::string ControlLine(const ControlRow& row)
{
    return Line({Code(row.name), std::string(KindName(row.kind)), Code(row.parent),
                 Quoted(row.caption), std::string(AccessibleNameOf(row)), Quoted(row.toolTip),
                 Length(row), AtStart(row), CommandCell(row), SourceCell(row)});
}

std::string RuleLine(const FieldRuleRow& row)
{
    return Line({Code(row.field), std::string(row.summary)});
}

constexpr std::string_view kIntroduction = "# The controls of the main window\n"
                                           "\n"
                                           "Made from the table that the window itself is made "
                                           "from (`src/panel/control_table.cpp`); a test\n"
                                           "compares the two. The rows stand in the order of the "
                                           "Tab key. Texts in quotes are literal, blanks\n"
                                           "included.\n"
                                           "\n";

} // namespace

std::string ControlPage()
{
    std::string page(kIntroduction);
    page += Line({"Control", "Kind", "On", "Caption", "What it is", "Tool tip", "Longest text",
                  "At the start", "Command", "Source"});
    page += "|---|---|---|---|---|---|---|---|---|---|\n";
    for (const ControlRow& row : ControlTable())
        page += ControlLine(row);
    page += "\n## What happens when a field is left\n\n";
    page += Line({"Field", "On leaving it"});
    page += "|---|---|\n";
    for (const FieldRuleRow& row : FieldRules())
        page += RuleLine(row);
    return page;
}

} // namespace tarvex::panel
