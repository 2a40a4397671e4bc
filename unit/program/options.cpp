#include "unit/program/options.h"

#include "unit/clock.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <stdexcept>

namespace tarvex::unit
{

namespace
{
constexpr const char* kFaultHelp =
    "something goes wrong, as in silent@wake3+, late@wake2:700, short@page5:49, stray@write1, "
    "hangup@page4:20. Troubles: silent, wrong, double, late, short, long, garbled, lower, shifted, "
    "stray, hangup. Moments: wake, page, clock, write. Repeatable";
constexpr const char* kFillHelp =
    "a survey in that block, also in a memory that was kept, as in "
    "4:depth=25.5,step=1,guides=4,client=ROSSI. Names: client, site, tube, depth, step, guides, "
    "north, nlet, date, time, seed. Repeatable";

/// Turns texts into values, and reports a refusal as a mistake of the command line.
template <typename Value, typename Parse>
void AddParsed(CLI::App& app, const std::string& name, const char* form, std::vector<Value>& values,
               Parse parse, const char* help)
{
    const auto take = [&values, parse](const std::vector<std::string>& texts) {
        try {
            for (const auto& text : texts)
                values.push_back(parse(text));
        } catch (const std::invalid_argument& error) {
            throw CLI::ValidationError(error.what());
        }
        return true;
    };
    // One text an option: a text may hold anything, so no separator cuts it.
    app.add_option(name, take, help)->type_name(form)->expected(1)->take_all();
}

std::string CheckClock(const std::string& digits)
{
    return Clock().Set(digits, Time{0}) ? "" : "the clock is given as YYMMDDhhmmss";
}

void AddAdapter(CLI::App& app, Options& options)
{
    constexpr int kLongest = 255; // what such an adapter's timer holds
    const auto take = [&options](int milliseconds) {
        options.adapter = std::chrono::milliseconds(milliseconds);
    };
    app.add_option_function<int>("--adapter", take,
                                 "hands its bytes over as a USB adapter does whose latency timer "
                                 "runs for that many milliseconds, 16 as a rule")
        ->type_name("MS")
        ->check(CLI::Range(1, kLongest));
}

void AddAwake(CLI::App& app, Options& options)
{
    static constexpr Time kAwake{300}; // who has waited for an answer goes on well within it
    const auto take = [&options](std::int64_t) { options.awake = kAwake; };
    app.add_flag_function("--awake", take,
                          "does not sleep where a measurement would feel it: just before a "
                          "character is due, and when an answer has gone out; takes up to half a "
                          "processor");
}

void Describe(CLI::App& app, Options& options, bool& fast)
{
    app.set_version_flag("--version", "tarvex-unit " TARVEX_VERSION, "shows the version and exits");
    app.add_option("--link", options.link, "symbolic link to the terminal, removed at the end")
        ->type_name("PATH");
    app.add_option("--memory", options.memory,
                   "keeps the memory: loaded if the file exists, saved after each write and at the "
                   "end")
        ->type_name("FILE");
    app.add_flag("--demo", options.demo,
                 "three surveys in blocks 1 to 3 of a new memory: two guides 30 m, four guides 40 "
                 "m, two guides 100 m");
    app.add_option("--replay", options.replay,
                   "log of a line, to answer as the unit did that was recorded; what the manager "
                   "says otherwise is printed, and makes the exit status 3")
        ->type_name("FILE")
        ->check(CLI::ExistingFile);
    AddParsed(app, "--fill", "BLOCK[:NAME=VALUE,...]", options.fills, ParseFill, kFillHelp);
    AddParsed(app, "--fault", "TROUBLE@MOMENTn[+][:AMOUNT]", options.faults, ParseFault,
              kFaultHelp);
    app.add_flag("--fast", fast,
                 "as fast as possible; otherwise both directions run at 9600 baud, 11 bits a "
                 "character");
    AddAwake(app, options);
    AddAdapter(app, options);
    app.add_option("--log", options.log,
                   "the conversation, one frame a line: seconds, speaker, bytes; - is the standard "
                   "output")
        ->type_name("FILE");
    app.add_option("--clock", options.clock,
                   "what the clock shows at the start; else the machine's time")
        ->type_name("YYMMDDhhmmss")
        ->check(CheckClock);
    app.add_flag("--clock-stopped", options.clockStopped, "the clock waits for its start command");
    for (const char* other :
         {"--memory", "--demo", "--fill", "--fault", "--log", "--clock", "--clock-stopped"})
        app.get_option("--replay")->excludes(other);
}
} // namespace

CommandLine ReadCommandLine(int argc, const char* const* argv)
{
    CommandLine line;
    bool fast = false;
    CLI::App app{"A simulated Tar Vex unit on a pseudo terminal", "tarvex-unit"};
    Describe(app, line.options, fast);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        line.exitStatus = app.exit(error);
    }
    line.options.pace = fast ? Pace::Fast : Pace::Line;
    return line;
}

} // namespace tarvex::unit
