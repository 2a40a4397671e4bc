#include "survey/program/commands.h"

#include "survey/files/refusal.h"
#include "survey/program/exporting.h"
#include "survey/program/printing.h"
#include "survey/program/show_window.h"

#include <iostream>

namespace tarvex::survey
{

namespace
{
int RunCommand(const Options& options)
{
    switch (options.command) {
    case Command::Show:
        return Show(options);
    case Command::Check:
        return CheckAll(options);
    case Command::Compare:
        return CompareAll(options);
    case Command::Export:
        return Export(options);
    case Command::List:
        return List(options);
    case Command::Window:
        return ShowWindow(options);
    }
    return kUnusable;
}
} // namespace

int Run(const Options& options)
{
    try {
        const int status = RunCommand(options);
        // A full disk shows here at the latest.
        if (std::cout.flush()) return status;
        std::cerr << "tarvex-survey: the output cannot be written\n";
    } catch (const Refusal& refusal) {
        std::cout.flush();
        std::cerr << "tarvex-survey: " << refusal.what() << "\n";
    }
    return kUnusable;
}

} // namespace tarvex::survey
