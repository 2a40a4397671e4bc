#include "download/file_commands.h"

#include "core/code_page.h"
#include "core/conversion.h"
#include "core/failure_rule.h"
#include "core/header_store.h"
#include "core/start_up.h"

namespace tarvex
{

namespace
{

constexpr std::string_view kAllFiles = " FILE (*.*)|*.*|";

} // namespace

void ChooseHeaderFile(ControlPanel& panel, WorkingState& state, FileDialog& dialog,
                      const std::filesystem::path& initialFolder)
{
    SkipOnError rule;
    dialog.filter = kAllFiles;
    dialog.initDir = initialFolder;
    dialog.filterIndex = 1;
    dialog.ShowOpen("Open header file");
    state.headerFilePath = dialog.fileName;
    panel.headerFile.SetText(code_page::Shown(state.headerFilePath));
    if (state.headerFilePath.empty()) return;

    EnableFileCommandGroup(panel);
    state.currentBlock = 1;
    panel.blockNumber.SetText(TwoDigits(state.currentBlock));
    ReloadPanel(panel, state);
}

void CreateDefaultHeaderFile(ControlPanel& panel, WorkingState& state, FileDialog& dialog)
{
    dialog.filter = kAllFiles;
    dialog.filterIndex = 1;
    dialog.ShowSave("New default header file", FileDialog::Fate::Overwritten);
    state.headerFilePath = dialog.fileName; // the panel keeps the name of the file before
    if (state.headerFilePath.empty()) return;

    HeaderFile file(state);
    file.Open();
    for (int recordNumber = 1; recordNumber <= kBlockCount; ++recordNumber) {
        state.blockHeader.cliente = "CLIENT0";
        SetDefaultsButClient(state.blockHeader);
        file.Put(recordNumber);
    }
    file.Close();
    DisableFileCommandGroup(panel);
}

void EnableDownload(ControlPanel& panel, FileDialog& dialog)
{
    SkipOnError rule;
    dialog.ShowSave("Folder of the reports", FileDialog::Fate::LeftAlone);
    panel.downloadButton.Enable();
}

} // namespace tarvex
