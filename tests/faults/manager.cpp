#include "faults/manager.h"

#include "faults/watched_process.h"

#include <csignal>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace tarvex::tests
{

namespace
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// For so long a lock file without a number keeps its port: its program may be about to write it.
constexpr auto kLockIsWritten = 1200ms;
constexpr std::string_view kBox = "box ";
constexpr std::string_view kText = "text ";
constexpr std::string_view kFailed = "failed ";

std::vector<std::string> Words(const Sandbox& desk, const ManagerStart& start)
{
    std::vector<std::string> words = {"env",
                                      "--chdir=" + desk.start.string(),
                                      "HOME=" + desk.home.string(),
                                      "TMPDIR=" + desk.home.string(),
                                      "XDG_RUNTIME_DIR=" + desk.home.string(),
                                      "QT_QPA_PLATFORM=offscreen",
                                      "QT_LOGGING_RULES=default.warning=false"};
    words.insert(words.end(), start.wrapper.begin(), start.wrapper.end());
    words.push_back(start.program);
    words.insert(words.end(), start.steps.begin(), start.steps.end());
    return words;
}

fs::path LockFileOf(const fs::path& port)
{
    std::error_code absent;
    const auto terminal = fs::canonical(port, absent).filename().string();
    return "/var/lock/LCK..pts_" + terminal;
}

bool IsEmptyFile(const fs::path& file)
{
    std::error_code absent;
    return fs::file_size(file, absent) == 0 && !absent;
}

} // namespace

Manager::Manager(const Sandbox& desk, Unawaited /*unawaited*/, const ManagerStart& start)
    : port_(desk.Port()), program_(Words(desk, start))
{
}

Manager::Manager(const Sandbox& desk, const ManagerStart& start) : Manager(desk, Unawaited{}, start)
{
    const auto line = program_.ReadLine();
    if (line == "ready") return;
    throw std::runtime_error("the panel does not come: " + line.value_or("nothing said") + ", " +
                             WatchedProcess(Process()).State());
}

std::vector<std::string> Manager::Do(const std::string& step)
{
    Begin(step);
    std::vector<std::string> boxes;
    auto line = program_.ReadLine();
    for (; line && line != "done"; line = program_.ReadLine()) {
        if (line->starts_with(kFailed)) throw std::runtime_error(step + ": " + *line);
        if (line->starts_with(kBox)) boxes.push_back(line->substr(kBox.size()));
    }
    if (!line)
        throw std::runtime_error("does not end: " + step + ", " +
                                 WatchedProcess(Process()).State());
    return boxes;
}

void Manager::DoAll(const std::vector<std::string>& steps)
{
    for (const auto& step : steps)
        Do(step);
}

bool Manager::Ends(int patience)
{
    auto line = program_.ReadLine(patience);
    while (line && line != "done")
        line = program_.ReadLine(patience);
    return line.has_value();
}

std::string Manager::Text(const std::string& box)
{
    Begin("say " + box);
    const auto line = program_.ReadLine();
    if (!line || !line->starts_with(kText)) throw std::runtime_error("no text of " + box);
    Ends(ChildProgram::kPatience);
    return line->substr(kText.size());
}

void Manager::Kill()
{
    program_.Signal(SIGKILL);
    program_.ExitStatus();
    if (IsEmptyFile(LockFileOf(port_))) std::this_thread::sleep_for(kLockIsWritten);
}

int Manager::Close()
{
    Begin("close");
    return program_.ExitStatus();
}

std::chrono::microseconds TimeOf(Manager& manager, const std::string& step)
{
    const auto start = std::chrono::steady_clock::now();
    manager.Do(step);
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() -
                                                                 start);
}

} // namespace tarvex::tests
