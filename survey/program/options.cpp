#include "survey/program/options.h"

#include <CLI/CLI.hpp>

namespace tarvex::survey
{

namespace
{
constexpr const char* kFilesHelp = "reports: \"...-dat.dat\", \"...-num.dat\" or \"datiram.dat\"";

CLI::App& AddCommand(CLI::App& app, Options& options, Command command, const std::string& name,
                     const std::string& help)
{
    auto& added = *app.add_subcommand(name, help);
    added.callback([&options, command] { options.command = command; });
    return added;
}

void AddShow(CLI::App& app, Options& options)
{
    auto& show =
        AddCommand(app, options, Command::Show, "show",
                   "The head and the readings of each survey, and what is odd in its files");
    show.add_option("FILE", options.files, kFilesHelp)->required();
    show.add_flag("--json", options.json, "as JSON");
}
} // namespace

CommandLine ReadCommandLine(int argc, const char* const* argv)
{
    CommandLine line;
    CLI::App app{"Looks at surveys that Tar Vex Manager has downloaded", "tarvex-survey"};
    app.set_version_flag("--version", "tarvex-survey " TARVEX_VERSION);
    app.require_subcommand(1);
    AddShow(app, line.options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        line.ends = true;
        line.exitStatus = app.exit(error) == 0 ? kGood : kUnusable;
    }
    return line;
}

} // namespace tarvex::survey
