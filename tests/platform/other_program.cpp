#include "platform/other_program.h"

#include <gtest/gtest.h>

#include <array>
#include <exception>
#include <fcntl.h>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex::tests
{

OtherProgram::OtherProgram(const std::filesystem::path& device,
                           const std::function<bool(int)>& hold)
{
    std::array<int, 2> ready{};
    std::array<int, 2> leave{};
    EXPECT_EQ(::pipe(ready.data()), 0);
    EXPECT_EQ(::pipe(leave.data()), 0);
    child_ = ::fork();
    char held = 0;
    if (child_ == 0) {
        ::close(leave[1]);
        const int descriptor = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
        held = hold(descriptor) ? 'y' : 'n';
        if (::write(ready[1], &held, 1) != 1) ::_exit(1);
        ::_exit(static_cast<int>(::read(leave[0], &held, 1)));
    }
    ::close(ready[1]);
    ::close(leave[0]);
    leave_ = leave[1];
    EXPECT_EQ(::read(ready[0], &held, 1), 1);
    ::close(ready[0]);
    EXPECT_EQ(held, 'y');
}

OtherProgram::~OtherProgram()
{
    ::close(leave_);
    EXPECT_EQ(::waitpid(child_, nullptr, 0), child_);
}

pid_t EndedProcess()
{
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    EXPECT_EQ(::waitpid(child, nullptr, 0), child);
    return child;
}

std::string FailureForOrdinaryUser(const std::function<bool()>& check)
{
    const pid_t child = ::fork();
    if (child == 0) {
        constexpr id_t kNobody = 65534;
        if (::getuid() == 0 &&
            (::setgroups(0, nullptr) != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) {
            ::_exit(2);
        }
        try {
            ::_exit(check() ? 0 : 1);
        } catch (const std::exception&) {
            ::_exit(3);
        }
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    if (!WIFEXITED(status)) return "the check ended by a signal";
    if (WEXITSTATUS(status) == 3) return "the check threw";
    if (WEXITSTATUS(status) == 2) return "no way to become another user";
    return WEXITSTATUS(status) == 0 ? "" : "it does not hold";
}

} // namespace tarvex::tests
