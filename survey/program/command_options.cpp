#include "survey/program/command_options.h"

#include "survey/model/number_text.h"

#include <cmath>

namespace tarvex::survey
{

namespace
{
constexpr const char* kFilesHelp = R"(reports: "...-dat.dat", "...-num.dat" or "datiram.dat")";

CLI::App& AddCommand(CLI::App& app, Options& options, Command command, const std::string& name,
                     const std::string& help)
{
    auto& added = *app.add_subcommand(name, help);
    added.callback([&options, command] { options.command = command; });
    return added;
}

/// A number from `least` to `most`. The library's own range lets "nan" pass.
CLI::Validator Within(double least, double most)
{
    const auto fault = [least, most](const std::string& text) {
        double value = 0;
        const bool inside =
            CLI::detail::lexical_cast(text, value) && value >= least && value <= most;
        return inside ? std::string() : text + " is no number in the range of this option";
    };
    return {fault, "NUMBER", "within"};
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
            ->check(Within(0, 1e9));
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
    constant->check(Within(1e-3, 1e9))->needs(base);
    base->check(Within(1e-3, 1e3))->needs(constant);
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
} // namespace

void AddCommands(CLI::App& app, Options& options, Texts& texts)
{
    AddShow(app, options);
    AddCheck(app, options);
    AddCompare(app, options, texts);
    AddExport(app, options, texts);
    AddList(app, options);
}

} // namespace tarvex::survey
