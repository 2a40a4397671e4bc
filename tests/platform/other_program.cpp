#include "platform/other_program.h"

#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
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

} // namespace tarvex::tests
