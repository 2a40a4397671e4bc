#include "core/start_up.h"

#include "core/code_page.h"
#include "core/conversion.h"
#include "core/failure_rule.h"

#include <array>
#include <system_error>

namespace tarvex
{

namespace
{
/// The controls that need a header file, in the order in which they change.
constexpr std::array<Control Panel::*, 7> kFileCommandGroup = {
    &Panel::sscommand9, &Panel::sscommand10, &Panel::sscommand6, &Panel::Command3,
    &Panel::Command6,   &Panel::Command4,    &Panel::Command7};
} // namespace

std::filesystem::path SystemCurrentDirectory()
{
    std::error_code error;
    auto directory = std::filesystem::current_path(error);
    if (error) throw RunTimeFailure("Path not found");
    return directory;
}

void EnableFileCommandGroup(Panel& panel)
{
    for (const auto control : kFileCommandGroup)
        (panel.*control).Enable();
}

void DisableFileCommandGroup(Panel& panel)
{
    for (const auto control : kFileCommandGroup)
        (panel.*control).Disable();
}

void LoadMainForm(Panel& panel, WorkingState& state, HeaderStore& headers,
                  const CurrentDirectory& currentDirectory)
{
    SkipOnError rule;
    state.DownloadBlock = 1;
    state.CurrentBlock = 1;
    EnableFileCommandGroup(panel);
    state.CurrentBlock = 1;
    panel.Text2.SetText(TwoDigits(state.CurrentBlock));
    Attempt([&] { state.HeaderFilePath = currentDirectory() / "intestazione"; });
    panel.Text15.SetText(code_page::Shown(state.HeaderFilePath));
    panel.ssOption1.Select(0);

    HeaderFile file(state);
    file.OpenEmptied(); // exactly the thirty records remain, whatever lay there
    headers.FillDefaults(file);
    file.Close();
    headers.ReloadPanel();
}

} // namespace tarvex
