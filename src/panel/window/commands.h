#pragma once

#include "core/control_panel.h"
#include "core/file_dialog.h"
#include "link/line.h"
#include "panel/window/forms.h"

#include <filesystem>
#include <span>

namespace tarvex::panel
{

/// What the operator can have done on the main form.
enum class Command {
    None,
    ReadBlock,
    ReadAllBlocks,
    SetBlock,
    SetAll,
    ResetBlock,
    TotalReset,
    ResetGainZero,
    BlockDownload,
    DownloadBlockUp,
    DownloadBlockDown,
    StepRecordUp,
    StepRecordDown,
    CopyHeaderForward,
    ChooseHeaderFile,
    CreateDefaultHeaderFile,
    ShowFolderChooser,
    EnableDownload,
    OpenDatabase,
    ShowAbout,
    OpenManual,
    ReadClock,
    WriteClock,
    StartClock,
    WriteCycleDelay,
    ChoosePort1,
    ChoosePort2,
    ChoosePort3,
    ChoosePort4,
    ShowPortDialog,
    ShowClockDialog,
    ShowDelayDialog,
};

/// What the commands of the main form work with. All of it outlives the main form.
struct CommandContext {
    ControlPanel& panel;
    Line line; ///< also the way to the working state
    Forms& forms;
    FileDialog& fileDialog;
    std::filesystem::path headerFolder; ///< where the open dialog for a header file starts
};

/// One command and its handler.
struct CommandRow {
    Command command;
    void (*run)(CommandContext& context);
};

/// Every command but None, in the order of the enumeration.
std::span<const CommandRow> CommandTable();

/// The row of a command other than None.
const CommandRow& RowOf(Command command);

} // namespace tarvex::panel
