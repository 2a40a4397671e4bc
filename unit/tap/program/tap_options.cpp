#include "unit/tap/program/tap_options.h"

#include <CLI/CLI.hpp>

namespace tarvex::unit
{

TapCommandLine ReadTapCommandLine(int argc, const char* const* argv)
{
    TapCommandLine line;
    CLI::App app{"Sits between a serial adapter and the manager, and records what passes",
                 "tarvex-tap"};
    app.add_option("DEVICE", line.options.device, "the adapter that the unit is connected to")
        ->required();
    app.add_option("--link", line.options.link,
                   "symbolic link to the manager's end, removed at the end");
    app.add_option("--log", line.options.log, "file for the log, - for the standard output")
        ->required();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        line.exitStatus = app.exit(error);
    }
    return line;
}

} // namespace tarvex::unit
