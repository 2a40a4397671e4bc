#include "survey/program/running.h"

#include "support/temporary_folder.h"

#include <cstdlib>
#include <sys/wait.h>

namespace tarvex::tests
{

namespace
{
std::string Quoted(const std::string& text)
{
    std::string quoted = "'";
    for (const char letter : text)
        quoted += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    return quoted + "'";
}
} // namespace

Outcome RunSurvey(const std::vector<std::string>& arguments)
{
    const TemporaryFolder folder;
    std::string line =
        "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " + Quoted(TARVEX_SURVEY_PROGRAM);
    for (const auto& argument : arguments)
        line += " " + Quoted(argument);
    line += " </dev/null >" + Quoted(folder / "out") + " 2>" + Quoted(folder / "err");
    const int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, FileBytes(folder / "out"),
            FileBytes(folder / "err")};
}

} // namespace tarvex::tests
