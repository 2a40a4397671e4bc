#include "core/start_up.h"

#include "core/code_page.h"
#include "core/conversion.h"
#include "core/failure_rule.h"

#include <system_error>

namespace tarvex
{

std::filesystem::path SystemCurrentDirectory()
{
    std::error_code error;
    auto directory = std::filesystem::current_path(error);
    if (error) throw RunTimeFailure("Path not found");
    return directory;
}

void EnableFileCommandGroup(Panel& panel)
{
    panel.sscommand9.Enable();
    panel.sscommand10.Enable();
    panel.sscommand6.Enable();
    panel.Command3.Enable();
    panel.Command6.Enable();
    panel.Command4.Enable();
    panel.Command7.Enable();
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
