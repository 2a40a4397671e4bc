#include "core/start_up.h"

#include "core/code_page.h"
#include "core/conversion.h"
#include "core/failure_rule.h"
#include "core/header_store.h"

#include <array>

namespace tarvex
{

namespace
{
/// The controls that need a header file, in the order in which they change.
constexpr std::array<Control ControlPanel::*, 7> kFileCommandGroup = {
    &ControlPanel::previousRecordButton, &ControlPanel::nextRecordButton,
    &ControlPanel::setAllButton,         &ControlPanel::readBlockButton,
    &ControlPanel::setBlockButton,       &ControlPanel::writeCalibrationButton,
    &ControlPanel::resetBlockButton};
} // namespace

void EnableFileCommandGroup(ControlPanel& panel)
{
    for (const auto control : kFileCommandGroup)
        (panel.*control).Enable();
}

void DisableFileCommandGroup(ControlPanel& panel)
{
    for (const auto control : kFileCommandGroup)
        (panel.*control).Disable();
}

void LoadMainForm(ControlPanel& panel, WorkingState& state,
                  const CurrentDirectory& currentDirectory)
{
    SkipOnError rule;
    state.downloadBlock = 1;
    state.currentBlock = 1;
    EnableFileCommandGroup(panel);
    panel.blockNumber.SetText(TwoDigits(state.currentBlock));
    Attempt([&] { state.headerFilePath = currentDirectory() / "intestazione"; });
    panel.headerFile.SetText(code_page::Shown(state.headerFilePath));
    panel.portOptions.Select(0);

    HeaderFile file(state);
    file.OpenEmptied(); // exactly the thirty records remain, whatever the file held
    FillDefaults(state, file);
    file.Close();
    ReloadPanel(panel, state);
}

} // namespace tarvex
