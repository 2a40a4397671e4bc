#include "survey/program/options.h"

#include "survey/number_text.h"

#include <CLI/CLI.hpp>

#include <cmath>

namespace tarvex::survey
{

namespace
{
constexpr const char* kFilesHelp = R"(reports: "...-dat.dat", "...-num.dat" or "datiram.dat")";
constexpr const char* kVersion =
    "tarvex-survey " TARVEX_VERSION "\n"
    "Its own sources are under the MIT licence. It is linked with QCustomPlot, so this program as "
    "a\n"
    "whole is under the GNU General Public Licence, version 3 or later. There is no warranty.";

/// Texts that become values once all of them are read.
struct Texts {
    std::string from = "bottom";
    std::string separator;
    std::string decimal;
    double constant = 0;
    double base = 0;
};

CLI::App& AddCommand(CLI::App& app, Options& options, Command command, const std::string& name,
                     const std::string& help)
{
    auto& added = *app.add_subcommand(name, help);
    added.callback([&options, command] { options.command = command; });
    return added;
}

/// Limits, finite and not below 0, each with its default and the reason.
void AddLimits(CLI::App& app, Limits& limits)
{
    for (const auto& limit : kLimitTexts) {
        auto& value = limits.*(limit.value);
        app.add_option("--" + std::string(limit.name), value,
                       std::string(limit.meaning) + " (" +
                           Decimals(value, value == std::floor(value) ? 0 : 1) + ": " +
                           std::string(limit.reason) + ")")
            ->type_name("NUMBER")
            ->check(CLI::Range(0.0, 1e9));
    }
}

void AddShow(CLI::App& app, Options& options)
{
    auto& show =
        AddCommand(app, options, Command::Show, "show",
                   "The head and the readings of each survey, and what is odd in its files");
    show.add_option("FILE", options.files, kFilesHelp)->required();
    show.add_flag("--json", options.json, "as JSON");
}

void AddCheck(CLI::App& app, Options& options)
{
    auto& check = AddCommand(app, options, Command::Check, "check",
                             "Whether each survey is good or what is to be read again, and why; "
                             "exit status 1 when one is not good");
    check.add_option("FILE", options.files, kFilesHelp)->required();
    check.add_flag("--json", options.json, "as JSON");
    AddLimits(check, options.limits);
}

void AddCompare(CLI::App& app, Options& options, Texts& texts)
{
    auto& compare = AddCommand(app, options, Command::Compare, "compare",
                               "Readings of a tube held against an earlier one, depth by depth");
    compare.add_option("FILE", options.files, "the base, then the readings to hold against it")
        ->required()
        ->expected(2, -1);
    compare.add_flag("--json", options.json, "as JSON");
    compare
        .add_option("--from", texts.from, "where the sum of the differences begins: bottom, top")
        ->check(CLI::IsMember({"bottom", "top"}));
    auto* const constant =
        compare.add_option("--constant", texts.constant,
                           "the probe's constant: counts of a half difference for a sine of 1");
    auto* const base =
        compare.add_option("--base", texts.base, "the probe's base length in metres");
    constant->check(CLI::Range(1e-3, 1e9))->needs(base);
    base->check(CLI::Range(1e-3, 1e3))->needs(constant);
}

void AddExport(CLI::App& app, Options& options, Texts& texts)
{
    auto& command = AddCommand(app, options, Command::Export, "export",
                               "One survey as a table, a spreadsheet, a plot or a sheet of paper");
    command.add_option("FILE", options.files, kFilesHelp)->required()->expected(1);
    auto& paths = options.exports;
    command.add_option("--csv", paths.csv, "table of numbers; - for the standard output");
    command.add_option("--json", paths.json, "everything, verdict too; - for the standard output");
    command.add_option("--xlsx", paths.xlsx, "spreadsheet");
    command.add_option("--svg", paths.svg, "plots");
    command.add_option("--png", paths.png, "plots");
    command.add_option("--pdf", paths.pdf, "one sheet: head, verdict, plots, table, remark, files");
    command.add_option("--separator", texts.separator, "between the columns of a CSV table");
    command.add_option("--decimal", texts.decimal, "decimal sign of a CSV table");
    command.add_option("--base", options.base, "the reading that the plots hold this one against");
    command.add_option("--remark", options.remark, "text for the PDF sheet");
    AddLimits(command, options.limits);
}

void AddList(CLI::App& app, Options& options)
{
    auto& list = AddCommand(app, options, Command::List, "list",
                            "The surveys below a folder by client, site, tube and readout");
    list.add_option("FOLDER", options.files, "where the reports lie")->required()->expected(1);
    list.add_flag("--json", options.json, "as JSON");
}

/// One byte that can part numbers: no digit, sign, quote or line end.
char CsvSign(const std::string& text, const char* name)
{
    if (text == "\\t" || text == "tab") return '\t';
    if (text.size() != 1 || std::string("0123456789+-\"\r\n").find(text) != std::string::npos)
        throw CLI::ValidationError(name, "must be one character that no number has");
    return text.front();
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
    app.add_option("PATH", line.options.files, "a report or a folder to show in the window")
        ->expected(0, 1);
    AddShow(app, line.options);
    AddCheck(app, line.options);
    AddCompare(app, line.options, texts);
    AddExport(app, line.options, texts);
    AddList(app, line.options);
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
