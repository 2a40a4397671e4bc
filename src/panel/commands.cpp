#include "panel/commands.h"

#include "blocks/read_all_blocks.h"
#include "blocks/read_block.h"
#include "blocks/reset_block.h"
#include "blocks/reset_gain_zero.h"
#include "blocks/set_all.h"
#include "blocks/set_block.h"
#include "blocks/total_reset.h"
#include "database/open_database.h"
#include "download/block_download.h"
#include "download/file_commands.h"
#include "panel/field_rules.h"
#include "settings/clock.h"
#include "settings/cycle_delay.h"

#include <array>
#include <cstddef>

namespace tarvex::panel
{

namespace
{

// A command is run with what its parameters name; each on the line with a link of its own.

template <void (*Handler)(Panel&, WorkingState&, DeviceLink&)>
void OnLine(CommandContext& context)
{
    DeviceLink link(context.line);
    Handler(context.panel, context.line.state, link);
}

template <void (*Handler)(Panel&, WorkingState&, HeaderStore&, DeviceLink&)>
void OnLine(CommandContext& context)
{
    DeviceLink link(context.line);
    Handler(context.panel, context.line.state, context.headers, link);
}

template <void (*Handler)(Panel&, WorkingState&, DeviceLink&, MessageBoxes&)>
void OnLine(CommandContext& context)
{
    DeviceLink link(context.line);
    Handler(context.panel, context.line.state, link, context.line.boxes);
}

template <void (*Handler)(Panel&, WorkingState&, HeaderStore&, DeviceLink&, MessageBoxes&)>
void OnLine(CommandContext& context)
{
    DeviceLink link(context.line);
    Handler(context.panel, context.line.state, context.headers, link, context.line.boxes);
}

void RunReadClock(CommandContext& context)
{
    DeviceLink link(context.line);
    ReadClock(&context.panel.Clock, link);
}

void RunWriteClock(CommandContext& context)
{
    DeviceLink link(context.line);
    WriteClock(context.panel.Clock, link, context.line.boxes);
}

void RunStartClock(CommandContext& context)
{
    DeviceLink link(context.line);
    StartClock(link, context.line.boxes);
}

void RunWriteCycleDelay(CommandContext& context)
{
    DeviceLink link(context.line);
    WriteCycleDelay(context.panel.Text16rt, link);
}

template <void (*Step)(Panel&, WorkingState&)>
void OnPanel(CommandContext& context)
{
    Step(context.panel, context.line.state);
}

template <void (*Step)(Panel&, WorkingState&, HeaderStore&)>
void OnRecords(CommandContext& context)
{
    Step(context.panel, context.line.state, context.headers);
}

void RunChooseHeaderFile(CommandContext& context)
{
    ChooseHeaderFile(context.panel, context.line.state, context.headers, context.fileDialog,
                     context.headerFolder);
}

void RunCreateDefaultHeaderFile(CommandContext& context)
{
    CreateDefaultHeaderFile(context.panel, context.line.state, context.fileDialog);
}

void RunEnableDownload(CommandContext& context)
{
    EnableDownload(context.panel, context.fileDialog);
}

void RunOpenDatabase(CommandContext& context)
{
    OpenDatabase(context.line.state, context.headers,
                 [&context] { context.forms.ShowDatabasePanel(); });
}

template <int Index>
void SelectPort(CommandContext& context)
{
    context.panel.ssOption1.Select(Index); // whose click hook makes the choice
}

template <void (Forms::*Show)()>
void OnForms(CommandContext& context)
{
    (context.forms.*Show)();
}

constexpr std::string_view kRules = "panel/field_rules.cpp";
constexpr std::string_view kFiles = "download/file_commands.cpp";
constexpr std::string_view kClock = "settings/clock.cpp";
constexpr std::string_view kPort = "settings/port_choice.cpp";
constexpr std::string_view kForms = "panel/forms.h";

constexpr std::array kCommands = {
    CommandRow{Command::ReadBlock, "ReadBlock", "blocks/read_block.cpp", OnLine<ReadBlock>},
    CommandRow{Command::ReadAllBlocks, "ReadAllBlocks", "blocks/read_all_blocks.cpp",
               OnLine<ReadAllBlocks>},
    CommandRow{Command::SetBlock, "SetBlock", "blocks/set_block.cpp", OnLine<SetBlock>},
    CommandRow{Command::SetAll, "SetAll", "blocks/set_all.cpp", OnLine<SetAll>},
    CommandRow{Command::ResetBlock, "ResetBlock", "blocks/reset_block.cpp", OnLine<ResetBlock>},
    CommandRow{Command::TotalReset, "TotalReset", "blocks/total_reset.cpp", OnLine<TotalReset>},
    CommandRow{Command::ResetGainZero, "ResetGainZero", "blocks/reset_gain_zero.cpp",
               OnLine<ResetGainZero>},
    CommandRow{Command::BlockDownload, "BlockDownload", "download/block_download.cpp",
               OnLine<BlockDownload>},
    CommandRow{Command::DownloadBlockUp, "StepDownloadBlockUp", kRules,
               OnPanel<StepDownloadBlockUp>},
    CommandRow{Command::DownloadBlockDown, "StepDownloadBlockDown", kRules,
               OnPanel<StepDownloadBlockDown>},
    CommandRow{Command::StepRecordUp, "StepRecordUp", kFiles, OnRecords<StepRecordUp>},
    CommandRow{Command::StepRecordDown, "StepRecordDown", kFiles, OnRecords<StepRecordDown>},
    CommandRow{Command::CopyHeaderForward, "CopyHeaderForward", kFiles,
               OnRecords<CopyHeaderForward>},
    CommandRow{Command::ChooseHeaderFile, "ChooseHeaderFile", kFiles, RunChooseHeaderFile},
    CommandRow{Command::CreateDefaultHeaderFile, "CreateDefaultHeaderFile", kFiles,
               RunCreateDefaultHeaderFile},
    CommandRow{Command::ShowFolderChooser, "ShowFolderChooser", kForms,
               OnForms<&Forms::ShowFolderChooser>},
    CommandRow{Command::EnableDownload, "EnableDownload", kFiles, RunEnableDownload},
    CommandRow{Command::OpenDatabase, "OpenDatabase", "database/open_database.cpp",
               RunOpenDatabase},
    CommandRow{Command::ShowAbout, "ShowAbout", kForms, OnForms<&Forms::ShowAbout>},
    CommandRow{Command::OpenManual, "OpenManual", kForms, OnForms<&Forms::OpenManual>},
    CommandRow{Command::ReadClock, "ReadClock", kClock, RunReadClock},
    CommandRow{Command::WriteClock, "WriteClock", kClock, RunWriteClock},
    CommandRow{Command::StartClock, "StartClock", kClock, RunStartClock},
    CommandRow{Command::WriteCycleDelay, "WriteCycleDelay", "settings/cycle_delay.cpp",
               RunWriteCycleDelay},
    CommandRow{Command::ChoosePort1, "ChoosePort", kPort, SelectPort<0>},
    CommandRow{Command::ChoosePort2, "ChoosePort", kPort, SelectPort<1>},
    CommandRow{Command::ChoosePort3, "ChoosePort", kPort, SelectPort<2>},
    CommandRow{Command::ChoosePort4, "ChoosePort", kPort, SelectPort<3>},
    CommandRow{Command::ShowPortDialog, "ShowPortDialog", "panel/dialogs/port_dialog.cpp",
               OnForms<&Forms::ShowPortDialog>},
    CommandRow{Command::ShowClockDialog, "ShowClockDialog", "panel/dialogs/clock_dialog.cpp",
               OnForms<&Forms::ShowClockDialog>},
    CommandRow{Command::ShowDelayDialog, "ShowDelayDialog", "panel/dialogs/delay_dialog.cpp",
               OnForms<&Forms::ShowDelayDialog>},
};

} // namespace

std::span<const CommandRow> CommandTable()
{
    return kCommands;
}

const CommandRow& RowOf(Command command)
{
    return kCommands.at(static_cast<std::size_t>(command) - 1);
}

bool IsBuilt(Command command)
{
    return command != Command::None && RowOf(command).run != nullptr;
}

} // namespace tarvex::panel
