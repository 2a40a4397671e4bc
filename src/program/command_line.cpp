#include "program/command_line.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvex
{

namespace
{

constexpr int kUsageError = 2;

constexpr std::string_view kUsage =
    "Usage: tarvex-manager [--help | --version] [OPTION OF THE TOOLKIT...]\n";

constexpr std::string_view kHelp =
    "Tar Vex Manager: reads, writes and downloads the blocks of a Tar Vex unit.\n"
    "It works in the folder that it is started in, and rewrites the file intestazione there.\n"
    "\n"
    "  --help     shows this text\n"
    "  --version  shows the program's version\n"
    "\n"
    "Options of the toolkit, such as -platform NAME, -style NAME and -display NAME, are its own.\n";

/// The options that the toolkit takes, each with one dash or two.
struct ToolkitOption {
    std::string_view name;
    bool takesValue; ///< as the argument after it
};

constexpr std::array kToolkitOptions = {ToolkitOption{"-display", true},
                                        ToolkitOption{"-geometry", true},
                                        ToolkitOption{"-icon", true},
                                        ToolkitOption{"-name", true},
                                        ToolkitOption{"-platform", true},
                                        ToolkitOption{"-platformpluginpath", true},
                                        ToolkitOption{"-platformtheme", true},
                                        ToolkitOption{"-plugin", true},
                                        ToolkitOption{"-qwindowgeometry", true},
                                        ToolkitOption{"-qwindowicon", true},
                                        ToolkitOption{"-qwindowtitle", true},
                                        ToolkitOption{"-reverse", false},
                                        ToolkitOption{"-session", true},
                                        ToolkitOption{"-style", true},
                                        ToolkitOption{"-stylesheet", true},
                                        ToolkitOption{"-title", true},
                                        ToolkitOption{"-widgetcount", false}};

/// The toolkit's options whose value may follow a "=".
constexpr std::array<std::string_view, 3> kWithEqualsSign = {
    "-qmljsdebugger=", "-style=", "-stylesheet="};

/// How many arguments the toolkit takes from here on; 0 when the first is not its own, or lacks its
/// value.
std::size_t TakenByToolkit(std::span<char* const> arguments)
{
    std::string_view name = arguments.front();
    if (name.starts_with("--")) name.remove_prefix(1);
    if (std::any_of(kWithEqualsSign.begin(), kWithEqualsSign.end(),
                    [&](std::string_view option) { return name.starts_with(option); })) {
        return 1;
    }
    const auto* const option =
        std::find_if(kToolkitOptions.begin(), kToolkitOptions.end(),
                     [&](const ToolkitOption& candidate) { return candidate.name == name; });
    if (option == kToolkitOptions.end()) return 0;
    const std::size_t count = option->takesValue ? 2 : 1;
    return count <= arguments.size() ? count : 0;
}

} // namespace

int RefuseArgument(const char* argument, std::ostream& error)
{
    error << "tarvex-manager: unknown or incomplete argument: " << argument << '\n' << kUsage;
    return kUsageError;
}

std::optional<int> AnswerCommandLine(std::span<char* const> arguments, std::ostream& out,
                                     std::ostream& error)
{
    arguments = arguments.subspan(std::min<std::size_t>(1, arguments.size()));
    while (!arguments.empty()) {
        const std::string_view argument = arguments.front();
        if (argument == "--help") {
            out << kUsage << kHelp;
            return 0;
        }
        if (argument == "--version") {
            out << "Tar Vex Manager " TARVEX_VERSION "\n";
            return 0;
        }
        const std::size_t taken = TakenByToolkit(arguments);
        if (taken == 0) return RefuseArgument(arguments.front(), error);
        arguments = arguments.subspan(taken);
    }
    return std::nullopt;
}

} // namespace tarvex
