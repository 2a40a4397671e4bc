#include "survey/program/commands.h"

#include "survey/json.h"
#include "survey/load.h"
#include "survey/table.h"

#include <iostream>

namespace tarvex::survey
{

namespace
{
int Show(const Options& options)
{
    for (const auto& file : options.files) {
        const auto survey = Load(file);
        std::cout << (options.json ? JsonOf(survey) : TableOf(survey));
    }
    return kGood;
}

int RunCommand(const Options& options)
{
    switch (options.command) {
    case Command::Show:
        return Show(options);
    case Command::None:
        break;
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
