#include "panel/window/control_page.h"

#include "panel/rules/field_rules.h"
#include "panel/window/control_table.h"

#include <algorithm>
#include <stdexcept>

namespace tarvex::tests
{

using namespace panel;

namespace
{

constexpr CommandEntry kEntries[] = {
    {Command::ReadBlock, "ReadBlock", "blocks/read_block.cpp"},
    {Command::ReadAllBlocks, "ReadAllBlocks", "blocks/read_all_blocks.cpp"},
    {Command::SetBlock, "SetBlock", "blocks/set_block.cpp"},
    {Command::SetAll, "SetAll", "blocks/set_all.cpp"},
    {Command::ResetBlock, "ResetBlock", "blocks/reset_block.cpp"},
    {Command::TotalReset, "TotalReset", "blocks/total_reset.cpp"},
    {Command::ResetGainZero, "ResetGainZero", "blocks/reset_gain_zero.cpp"},
    {Command::BlockDownload, "BlockDownload", "download/block_download.cpp"},
    {Command::DownloadBlockUp, "StepDownloadBlockUp", "panel/rules/field_rules.cpp"},
    {Command::DownloadBlockDown, "StepDownloadBlockDown", "panel/rules/field_rules.cpp"},
    {Command::StepRecordUp, "StepRecordUp", "core/header_steps.cpp"},
    {Command::StepRecordDown, "StepRecordDown", "core/header_steps.cpp"},
    {Command::CopyHeaderForward, "CopyHeaderForward", "core/header_steps.cpp"},
    {Command::ChooseHeaderFile, "ChooseHeaderFile", "download/file_commands.cpp"},
    {Command::CreateDefaultHeaderFile, "CreateDefaultHeaderFile", "download/file_commands.cpp"},
    {Command::ShowFolderChooser, "ShowFolderChooser", "panel/window/forms.h"},
    {Command::EnableDownload, "EnableDownload", "download/file_commands.cpp"},
    {Command::OpenDatabase, "OpenDatabase", "database/open_database.cpp"},
    {Command::ShowAbout, "ShowAbout", "panel/window/forms.h"},
    {Command::OpenManual, "OpenManual", "panel/window/forms.h"},
    {Command::ReadClock, "ReadClock", "settings/clock.cpp"},
    {Command::WriteClock, "WriteClock", "settings/clock.cpp"},
    {Command::StartClock, "StartClock", "settings/clock.cpp"},
    {Command::WriteCycleDelay, "WriteCycleDelay", "settings/cycle_delay.cpp"},
    {Command::ChoosePort1, "ChoosePort", "settings/port_choice.cpp"},
    {Command::ChoosePort2, "ChoosePort", "settings/port_choice.cpp"},
    {Command::ChoosePort3, "ChoosePort", "settings/port_choice.cpp"},
    {Command::ChoosePort4, "ChoosePort", "settings/port_choice.cpp"},
    {Command::ShowPortDialog, "ShowPortDialog", "panel/dialogs/port_dialog.cpp"},
    {Command::ShowClockDialog, "ShowClockDialog", "panel/dialogs/clock_dialog.cpp"},
    {Command::ShowDelayDialog, "ShowDelayDialog", "panel/dialogs/delay_dialog.cpp"},
};

constexpr std::string_view kBlockSummary =
    "a box when it is empty, below 0 or above 29; the text stays";
constexpr std::string_view kTextSummary = "filled with blanks to its width, in capitals";
constexpr std::string_view kDepthSummary =
    "zeros on its left; a depth above 100.0 m with step 0, or above 200.0 m with step 1, gives a "
    "box and becomes that limit";

/// What a field's rule does, in a line.
struct RuleSummary {
    std::string_view field;
    std::string_view summary;
};

constexpr RuleSummary kSummaries[] = {
    {"Text2", kBlockSummary},
    {"Text3", kTextSummary},
    {"Text4", kTextSummary},
    {"Text5", kTextSummary},
    {"Text6", kDepthSummary},
    {"Text13", "5 or 0, else a box and 0; then as `Text6`. A double click toggles it"},
    {"Text7", "1 or 0, else a box and 0"},
    {"Text8", "4 or 2, else a box and 2"},
    {"Text9", "four characters, else a box and +000"},
    {"Text10", "zeros on its left"},
    {"numblocco", kBlockSummary},
};

std::string_view SummaryOf(std::string_view field)
{
    const auto* row = std::ranges::find(kSummaries, field, &RuleSummary::field);
    if (row == std::end(kSummaries)) throw std::out_of_range(std::string(field));
    return row->summary;
}

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
    ControlPanel panel;
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
    ControlPanel panel;
    const TextBox* box = TextBoxOf(row, panel);
    if (box == nullptr || box->MaximumLength() == TextBox::kAnyLength) return {};
    return std::to_string(box->MaximumLength());
}

std::string CommandCell(const ControlRow& row)
{
    if (row.command == Command::None) return {};
    return Code(EntryOf(row.command).name);
}

std::string SourceCell(const ControlRow& row)
{
    if (row.command == Command::None) return {};
    return Code("src/" + std::string(EntryOf(row.command).source));
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
                 Quoted(row.caption), std::string(AccessibleNameOf(row)),
                 AccessibleDescriptionOf(row), Quoted(row.toolTip), Length(row), AtStart(row),
                 CommandCell(row), SourceCell(row)});
}

std::string RuleLine(const FieldRuleRow& row)
{
    return Line({Code(row.field), std::string(SummaryOf(row.field))});
}

constexpr std::string_view kIntroduction = "# The controls of the main window\n"
                                           "\n"
                                           "Made from the table that the window itself is made "
                                           "from (`src/panel/window/control_table.cpp`); a test\n"
                                           "compares the two. The rows are in the order of the "
                                           "Tab key. Texts in quotes are literal, blanks\n"
                                           "included.\n"
                                           "\n";

} // namespace

const CommandEntry& EntryOf(Command command)
{
    const auto* row = std::ranges::find(kEntries, command, &CommandEntry::command);
    if (row == std::end(kEntries)) throw std::out_of_range("a command that the page does not name");
    return *row;
}

std::string ControlPage()
{
    std::string page(kIntroduction);
    page += Line({"Control", "Kind", "On", "Caption", "Name", "What it is", "Tool tip",
                  "Longest text", "At the start", "Command", "Source"});
    page += "|---|---|---|---|---|---|---|---|---|---|---|\n";
    for (const ControlRow& row : ControlTable())
        page += ControlLine(row);
    page += "\n## What happens when a field is left\n\n";
    page += Line({"Field", "On leaving it"});
    page += "|---|---|\n";
    for (const FieldRuleRow& row : FieldRules())
        page += RuleLine(row);
    return page;
}

} // namespace tarvex::tests
