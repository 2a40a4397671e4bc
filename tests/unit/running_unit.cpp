#include "running_unit.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <stdexcept>

namespace tarvex::unit
{

namespace
{
constexpr int kPatience = 20'000; // milliseconds

bool HasInput(int number)
{
    pollfd watched{number, POLLIN, 0};
    return ::poll(&watched, 1, kPatience) > 0;
}

pid_t Start(const char* program, const std::vector<std::string>& arguments, int output)
{
    std::vector<char*> argv{const_cast<char*>(program)};
    for (const auto& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = -1;
    const int failure = ::posix_spawn(&process, argv[0], &actions, nullptr, argv.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) throw std::runtime_error("the program does not start");
    return process;
}
} // namespace

RunningUnit::RunningUnit(const std::vector<std::string>& arguments, const char* program)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    output_ = ends[0];
    process_ = Start(program, arguments, ends[1]);
    ::close(ends[1]);
    terminal_ = ReadLine();
}

RunningUnit::~RunningUnit()
{
    if (process_ > 0) {
        Signal(SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }
    ::close(output_);
}

std::string RunningUnit::ReadLine() const
{
    std::string line;
    char byte = 0;
    while (HasInput(output_) && ::read(output_, &byte, 1) == 1 && byte != '\n')
        line += byte;
    return line;
}

std::string RunningUnit::RestOfOutput() const
{
    std::string rest;
    char byte = 0;
    while (HasInput(output_) && ::read(output_, &byte, 1) == 1)
        rest += byte;
    return rest;
}

void RunningUnit::Signal(int number) const
{
    ::kill(process_, number);
}

int RunningUnit::ExitStatus()
{
    RestOfOutput(); // its end comes with the program's
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

ManagersPort::ManagersPort(const std::filesystem::path& path)
    : number_(::open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC))
{
}

ManagersPort::~ManagersPort()
{
    if (number_ >= 0) ::close(number_);
}

void ManagersPort::Send(std::string_view bytes) const
{
    if (::write(number_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        throw std::runtime_error("the line takes no bytes");
}

std::string ManagersPort::Receive(std::size_t count) const
{
    std::string bytes;
    char byte = 0;
    while (bytes.size() < count && HasInput(number_) && ::read(number_, &byte, 1) == 1)
        bytes += byte;
    return bytes;
}

std::string ManagersPort::Exchange(std::string_view frame, std::size_t count) const
{
    Send("}");
    const auto answer = Receive(1);
    if (answer != "!") return "(not woken: " + answer + ")";
    Send(frame);
    return Receive(count);
}

bool ManagersPort::IsHungUp() const
{
    pollfd watched{number_, 0, 0};
    return ::poll(&watched, 1, kPatience) > 0 && (watched.revents & POLLHUP) != 0;
}

} // namespace tarvex::unit
