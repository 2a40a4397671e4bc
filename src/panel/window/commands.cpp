#include "panel/window/commands.h"

#include "blocks/read_all_blocks.h"
#include "blocks/read_block.h"
#include "blocks/reset_block.h"
#include "blocks/reset_gain_zero.h"
#include "blocks/set_all.h"
#include "blocks/set_block.h"
#include "blocks/total_reset.h"
#include "core/header_steps.h"
#include "database/open_database.h"
#include "download/block_download.h"
#include "download/file_commands.h"
#include "panel/rules/field_rules.h"
#include "settings/clock.h"
#include "settings/cycle_delay.h"

#include <array>
#include <cstddef>

namespace tarvex::panel
{

namespace
{

// A command is run with what its parameters name; each on the line with a link of its own.

template <void (*Handler)(ControlPanel&, WorkingState&, DeviceLink&, OperatorView&)>
void OnLine(CommandContext& context)
{
    DeviceLink link(context.line);
    OperatorView view(context.line);
    Handler(context.panel, context.line.state, link, view);
}

template <void (*Handler)(ControlPanel&, WorkingState&, DeviceLink&, OperatorView&, EventPump&)>
void OnLine(CommandContext& context)
{
    DeviceLink link(context.line);
    OperatorView view(context.line);
    Handler(context.panel, context.line.state, link, view, context.line.pump);
}

void RunReadClock(CommandContext& context)
{
    DeviceLink link(context.line);
    OperatorView view(context.line);
    ReadClock(&context.panel.clock, link, view);
}

void RunWriteClock(CommandContext& context)
{
    DeviceLink link(context.line);
    OperatorView view(context.line);
    WriteClock(context.panel.clock, link, view);
}

void RunStartClock(CommandContext& context)
{
    DeviceLink link(context.line);
    OperatorView view(context.line);
    StartClock(link, view);
}

void RunWriteCycleDelay(CommandContext& context)
{
    DeviceLink link(context.line);
    OperatorView view(context.line);
    WriteCycleDelay(context.panel.cycleDelay, link, view);
}

template <void (*Step)(ControlPanel&, WorkingState&)>
void OnPanel(CommandContext& context)
{
    Step(context.panel, context.line.state);
}

void RunChooseHeaderFile(CommandContext& context)
{
    ChooseHeaderFile(context.panel, context.line.state, context.fileDialog, context.headerFolder);
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
    OpenDatabase(context.panel, context.line.state,
                 [&context] { context.forms.ShowDatabasePanel(); });
}

template <int Index>
void SelectPort(CommandContext& context)
{
    context.panel.portOptions.Select(Index); // whose click hook makes the choice
}

template <void (Forms::*Show)()>
void OnForms(CommandContext& context)
{
    (context.forms.*Show)();
}

constexpr std::array kCommands = {
    CommandRow{Command::ReadBlock, OnLine<ReadBlock>},
    CommandRow{Command::ReadAllBlocks, OnLine<ReadAllBlocks>},
    CommandRow{Command::SetBlock, OnLine<SetBlock>},
    CommandRow{Command::SetAll, OnLine<SetAll>},
    CommandRow{Command::ResetBlock, OnLine<ResetBlock>},
    CommandRow{Command::TotalReset, OnLine<TotalReset>},
    CommandRow{Command::ResetGainZero, OnLine<ResetGainZero>},
    CommandRow{Command::BlockDownload, OnLine<BlockDownload>},
    CommandRow{Command::DownloadBlockUp, OnPanel<StepDownloadBlockUp>},
    CommandRow{Command::DownloadBlockDown, OnPanel<StepDownloadBlockDown>},
    CommandRow{Command::StepRecordUp, OnPanel<StepRecordUp>},
    CommandRow{Command::StepRecordDown, OnPanel<StepRecordDown>},
    CommandRow{Command::CopyHeaderForward, OnPanel<CopyHeaderForward>},
    CommandRow{Command::ChooseHeaderFile, RunChooseHeaderFile},
    CommandRow{Command::CreateDefaultHeaderFile, RunCreateDefaultHeaderFile},
    CommandRow{Command::ShowFolderChooser, OnForms<&Forms::ShowFolderChooser>},
    CommandRow{Command::EnableDownload, RunEnableDownload},
    CommandRow{Command::OpenDatabase, RunOpenDatabase},
    CommandRow{Command::ShowAbout, OnForms<&Forms::ShowAbout>},
    CommandRow{Command::OpenManual, OnForms<&Forms::OpenManual>},
    CommandRow{Command::ReadClock, RunReadClock},
    CommandRow{Command::WriteClock, RunWriteClock},
    CommandRow{Command::StartClock, RunStartClock},
    CommandRow{Command::WriteCycleDelay, RunWriteCycleDelay},
    CommandRow{Command::ChoosePort1, SelectPort<0>},
    CommandRow{Command::ChoosePort2, SelectPort<1>},
    CommandRow{Command::ChoosePort3, SelectPort<2>},
    CommandRow{Command::ChoosePort4, SelectPort<3>},
    CommandRow{Command::ShowPortDialog, OnForms<&Forms::ShowPortDialog>},
    CommandRow{Command::ShowClockDialog, OnForms<&Forms::ShowClockDialog>},
    CommandRow{Command::ShowDelayDialog, OnForms<&Forms::ShowDelayDialog>},
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

} // namespace tarvex::panel
