#include "running_unit.h"

#include <fcntl.h>
#include <poll.h>
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

std::vector<std::string> Words(const char* program, const std::vector<std::string>& arguments)
{
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return words;
}
} // namespace

RunningUnit::RunningUnit(const std::vector<std::string>& arguments, const char* program)
    : program_(Words(program, arguments), tests::ChildProgram::Errors::Dropped),
      terminal_(program_.ReadLine().value_or(""))
{
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
