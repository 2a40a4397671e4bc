#include "unit/program/options.h"
#include "unit/program/replay_session.h"
#include "unit/program/session.h"

#include <exception>
#include <iostream>

namespace
{
constexpr int kDiffers = 3; // exit status: the manager said something else than the record
} // namespace

int main(int argc, char** argv)
{
    using namespace tarvex::unit;
    try {
        const auto line = ReadCommandLine(argc, argv);
        if (line.exitStatus) return *line.exitStatus;
        if (!line.options.replay.empty()) return ReplaySession(line.options).Run() ? 0 : kDiffers;
        Session(line.options).Run();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "tarvex-unit: " << error.what() << '\n';
        return 1;
    }
}
