#include "support/child_program.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace tarvex::tests
{

namespace
{

pid_t Start(const std::vector<std::string>& words, int channel, ChildProgram::Errors errors)
{
    std::vector<char*> argv;
    for (const auto& word : words)
        argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, channel, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, channel, STDOUT_FILENO);
    if (errors == ChildProgram::Errors::Dropped)
        ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = -1;
    const int failure = ::posix_spawnp(&process, argv[0], &actions, nullptr, argv.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) throw std::runtime_error("does not start: " + words.front());
    return process;
}

} // namespace

ChildProgram::ChildProgram(const std::vector<std::string>& words, Errors errors)
{
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw std::runtime_error("no channel to a program");
    socket_ = ends[0];
    process_ = Start(words, ends[1], errors);
    ::close(ends[1]);
}

ChildProgram::~ChildProgram()
{
    if (process_ > 0) {
        Signal(SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }
    ::close(socket_);
}

bool ChildProgram::WriteLine(std::string_view line) const
{
    const std::string text = std::string(line) + "\n";
    return ::send(socket_, text.data(), text.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(text.size());
}

std::optional<std::string> ChildProgram::ReadLine(int patience)
{
    auto end = received_.find('\n');
    while (end == std::string::npos && Receive(patience))
        end = received_.find('\n');
    if (end == std::string::npos) return std::nullopt;
    std::string line = received_.substr(0, end);
    received_.erase(0, end + 1);
    return line;
}

std::string ChildProgram::RestOfOutput()
{
    while (Receive(kPatience)) {
    }
    return std::exchange(received_, {});
}

void ChildProgram::Signal(int number) const
{
    ::kill(process_, number);
}

int ChildProgram::ExitStatus()
{
    RestOfOutput(); // its end comes with the program's
    if (!ended_) Signal(SIGKILL);
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

/// Takes in what has come; false when nothing does, or nothing more will.
bool ChildProgram::Receive(int patience)
{
    pollfd watched{socket_, POLLIN, 0};
    if (::poll(&watched, 1, patience) <= 0) return false;
    std::array<char, 4096> bytes{};
    const ssize_t count = ::recv(socket_, bytes.data(), bytes.size(), 0);
    ended_ = count <= 0;
    if (ended_) return false;
    received_.append(bytes.data(), static_cast<std::size_t>(count));
    return true;
}

} // namespace tarvex::tests
