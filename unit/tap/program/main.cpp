#include "unit/tap/program/tap_options.h"
#include "unit/tap/program/tap_session.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    using namespace tarvex::unit;
    try {
        const auto line = ReadTapCommandLine(argc, argv);
        if (line.exitStatus) return *line.exitStatus;
        TapSession(line.options).Run();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "tarvex-tap: " << error.what() << '\n';
        return 1;
    }
}
