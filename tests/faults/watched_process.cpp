#include "faults/watched_process.h"

#include <fstream>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace tarvex::tests
{

WatchedProcess::WatchedProcess(pid_t process)
    : folder_(std::filesystem::path("/proc") / std::to_string(process))
{
}

double WatchedProcess::LoadWithin(std::chrono::milliseconds span) const
{
    const double before = ProcessorTime();
    std::this_thread::sleep_for(span);
    return (ProcessorTime() - before) / std::chrono::duration<double>(span).count();
}

std::vector<std::string> WatchedProcess::Terminals() const
{
    std::vector<std::string> terminals;
    for (const auto& entry : std::filesystem::directory_iterator(folder_ / "fd")) {
        std::error_code gone;
        const auto target = std::filesystem::read_symlink(entry, gone).string();
        if (target.starts_with("/dev/pts/")) terminals.push_back(target);
    }
    return terminals;
}

int WatchedProcess::Descriptors() const
{
    const std::filesystem::directory_iterator first(folder_ / "fd");
    return static_cast<int>(std::distance(first, std::filesystem::directory_iterator()));
}

std::string WatchedProcess::State() const
{
    std::string place;
    std::getline(std::ifstream(folder_ / "wchan"), place);
    return Status("State:") + " in " + place;
}

long WatchedProcess::PrivateMemory() const
{
    return std::stol(Status("RssAnon:"));
}

std::string WatchedProcess::Status(std::string_view name) const
{
    std::ifstream file(folder_ / "status");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(name)) return line.substr(name.size() + 1);
    return "0";
}

/// In seconds; the fields 14 and 15, of which the second is in parentheses and may hold anything.
double WatchedProcess::ProcessorTime() const
{
    std::ifstream file(folder_ / "stat");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    std::istringstream fields(text.substr(text.rfind(')') + 1));
    std::string passed;
    for (int field = 3; field < 14; ++field)
        fields >> passed;
    double user = 0;
    double system = 0;
    fields >> user >> system;
    return (user + system) / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

} // namespace tarvex::tests
