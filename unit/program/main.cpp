#include "unit/program/options.h"
#include "unit/program/session.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    using namespace tarvex::unit;
    try {
        const auto line = ReadCommandLine(argc, argv);
        if (line.exitStatus) return *line.exitStatus;
        Session(line.options).Run();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "tarvex-unit: " << error.what() << '\n';
        return 1;
    }
}
