#include "survey/program/options.h"

#include "survey/program/command_options.h"

#include <CLI/CLI.hpp>

#include <utility>

namespace tarvex::survey
{

namespace
{
constexpr const char* kVersion =
    "tarvex-survey " TARVEX_VERSION "\n"
    "Its own sources are under the MIT licence. It is linked with QCustomPlot, so this program as "
    "a\n"
    "whole is under the GNU General Public Licence, version 3 or later. There is no warranty.";

/// One byte that can part numbers: no digit, sign, quote or line end.
char CsvSign(const std::string& text, const char* name)
{
    if (text == "\\t" || text == "tab") return '\t';
    if (text.size() != 1 || std::string("0123456789+-\"\r\n").find(text) != std::string::npos)
        throw CLI::ValidationError(name, "must be one character that no number has");
    return text.front();
}

/// Only texts go to the standard output.
void RequireFiles(const ExportPaths& paths)
{
    for (const auto& [name, path] :
         {std::pair{"--xlsx", &paths.xlsx}, std::pair{"--svg", &paths.svg},
          std::pair{"--png", &paths.png}, std::pair{"--pdf", &paths.pdf}})
        if (*path == "-") throw CLI::ValidationError(name, "needs the name of a file");
}

void Finish(Options& options, const Texts& texts)
{
    options.csv = DesktopForm();
    if (!texts.separator.empty()) options.csv.separator = CsvSign(texts.separator, "--separator");
    if (!texts.decimal.empty()) options.csv.decimal = CsvSign(texts.decimal, "--decimal");
    if (options.csv.separator == options.csv.decimal)
        throw CLI::ValidationError("--separator", "must not be the decimal sign");
    if (texts.from == "top") options.sumFrom = SumFrom::Top;
    if (texts.constant > 0) options.probe = Probe{texts.constant, texts.base};
    RequireFiles(options.exports);
    if (options.command == Command::Export && !options.exports.Any())
        throw CLI::ValidationError("export",
                                   "say to what: --csv, --json, --xlsx, --svg, --png, --pdf");
}
} // namespace

bool ExportPaths::Any() const
{
    for (const auto* path : {&csv, &json, &xlsx, &svg, &png, &pdf})
        if (!path->empty()) return true;
    return false;
}

CommandLine ReadCommandLine(int argc, const char* const* argv)
{
    CommandLine line;
    Texts texts;
    CLI::App app{"Looks at surveys that Tar Vex Manager has downloaded", "tarvex-survey"};
    app.set_version_flag("--version", kVersion);
    app.require_subcommand(0, 1);
    app.add_option("PATH", line.options.files, "reports and folders to show in the window")
        ->expected(0, -1);
    AddCommands(app, line.options, texts);
    try {
        app.parse(argc, argv);
        Finish(line.options, texts);
    } catch (const CLI::ParseError& error) {
        line.ends = true;
        line.exitStatus = app.exit(error) == 0 ? kGood : kUnusable;
    }
    return line;
}

} // namespace tarvex::survey
