#include "download/file_commands.h"

#include "core/code_page.h"
#include "core/conversion.h"
#include "core/failure_rule.h"
#include "core/header_boxes.h"
#include "core/start_up.h"

namespace tarvex
{

namespace
{

constexpr std::string_view kAllFiles = " FILE (*.*)|*.*|";

void ShowCurrentBlock(Panel& panel, const WorkingState& state)
{
    panel.Text2.SetText(TwoDigits(state.CurrentBlock));
}

void MoveUp(Panel& panel, WorkingState& state)
{
    state.CurrentBlock += 1;
    if (state.CurrentBlock > kBlockCount) state.CurrentBlock = kBlockCount;
    ShowCurrentBlock(panel, state);
}

void MoveDown(Panel& panel, WorkingState& state)
{
    state.CurrentBlock -= 1;
    if (state.CurrentBlock < 1) state.CurrentBlock = 1;
    ShowCurrentBlock(panel, state);
}

using Move = void (*)(Panel&, WorkingState&);

void StepRecord(Panel& panel, WorkingState& state, HeaderStore& headers, Move move)
{
    if (state.HeaderFilePath.empty()) return;
    headers.StorePanel(state.CurrentBlock);
    move(panel, state);

    HeaderFile file(state);
    file.Open();
    file.Get(state.CurrentBlock);
    LoadHeaderBoxes(panel, state.BlockHeader);
    file.Close();
}

} // namespace

void StepRecordUp(Panel& panel, WorkingState& state, HeaderStore& headers)
{
    StepRecord(panel, state, headers, MoveUp);
}

void StepRecordDown(Panel& panel, WorkingState& state, HeaderStore& headers)
{
    StepRecord(panel, state, headers, MoveDown);
}

void CopyHeaderForward(Panel& panel, WorkingState& state, HeaderStore& headers)
{
    SkipOnError rule;
    if (state.HeaderFilePath.empty()) return;
    headers.StorePanel(state.CurrentBlock);
    MoveUp(panel, state);
}

void ChooseHeaderFile(Panel& panel, WorkingState& state, HeaderStore& headers, FileDialog& dialog,
                      const std::filesystem::path& initialFolder)
{
    SkipOnError rule;
    dialog.Filter = kAllFiles;
    dialog.InitDir = initialFolder;
    dialog.FilterIndex = 1;
    dialog.ShowOpen("Open header file");
    state.HeaderFilePath = dialog.FileName;
    panel.Text15.SetText(code_page::Shown(state.HeaderFilePath));
    if (state.HeaderFilePath.empty()) return;

    EnableFileCommandGroup(panel);
    state.CurrentBlock = 1;
    ShowCurrentBlock(panel, state);
    headers.ReloadPanel();
}

void CreateDefaultHeaderFile(Panel& panel, WorkingState& state, FileDialog& dialog)
{
    dialog.Filter = kAllFiles;
    dialog.FilterIndex = 1;
    dialog.ShowSave("New default header file", FileDialog::Fate::Overwritten);
    state.HeaderFilePath = dialog.FileName; // Text15 keeps the name of the file before
    if (state.HeaderFilePath.empty()) return;

    HeaderFile file(state);
    file.Open();
    for (int recordNumber = 1; recordNumber <= kBlockCount; ++recordNumber) {
        state.BlockHeader.cliente = "CLIENT0";
        SetDefaultsButClient(state.BlockHeader);
        file.Put(recordNumber);
    }
    file.Close();
    DisableFileCommandGroup(panel);
}

void EnableDownload(Panel& panel, FileDialog& dialog)
{
    SkipOnError rule;
    dialog.ShowSave("Folder of the reports", FileDialog::Fate::LeftAlone);
    panel.command3d1.Enable();
}

} // namespace tarvex
