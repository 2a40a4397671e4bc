#include "survey/program/commands.h"
#include "survey/program/options.h"

#include <exception>
#include <iostream>

int main(int argc, char* argv[])
{
    using namespace tarvex::survey;
    try {
        const auto line = ReadCommandLine(argc, argv);
        return line.ends ? line.exitStatus : Run(line.options);
    } catch (const std::exception& error) {
        std::cerr << "tarvex-survey: " << error.what() << "\n";
        return kUnusable;
    }
}
