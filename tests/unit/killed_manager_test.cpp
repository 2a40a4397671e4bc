#include "running_unit.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tarvex::unit
{
namespace
{

using namespace std::chrono_literals;

/// A manager that has opened the port as its own, in a process that can be killed.
class Manager
{
public:
    explicit Manager(const std::string& port)
    {
        std::array<int, 2> ready{};
        EXPECT_EQ(::pipe(ready.data()), 0);
        process_ = ::fork();
        if (process_ == 0) {
            const char done = HoldPort(port) ? 'y' : 'n';
            if (::write(ready[1], &done, 1) == 1) ::pause();
            ::_exit(1);
        }
        ::close(ready[1]);
        char held = 0;
        EXPECT_EQ(::read(ready[0], &held, 1), 1);
        EXPECT_EQ(held, 'y');
        ::close(ready[0]);
    }
    ~Manager() { Kill(); }
    Manager(const Manager&) = delete;
    Manager& operator=(const Manager&) = delete;

    void Kill()
    {
        if (process_ < 0) return;
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
        process_ = -1;
    }

private:
    static bool HoldPort(const std::string& port)
    {
        const int locked = ::open(port.c_str(), O_RDWR | O_NOCTTY);
        if (::flock(locked, LOCK_EX | LOCK_NB) != 0) return false;
        return ::ioctl(::open(port.c_str(), O_RDWR | O_NOCTTY), TIOCEXCL) == 0;
    }

    pid_t process_ = -1;
};

/// The test's own look at the port, opened before anybody holds it.
class Onlooker
{
public:
    explicit Onlooker(const std::string& port) : number_(::open(port.c_str(), O_RDWR | O_NOCTTY)) {}
    ~Onlooker() { ::close(number_); }
    Onlooker(const Onlooker&) = delete;
    Onlooker& operator=(const Onlooker&) = delete;

    bool SeesExclusiveFlag() const
    {
        int exclusive = 0;
        EXPECT_EQ(::ioctl(number_, TIOCGEXCL, &exclusive), 0);
        return exclusive != 0;
    }

    bool SeesItGone() const
    {
        for (int tries = 0; SeesExclusiveFlag() && tries < 1000; ++tries)
            std::this_thread::sleep_for(10ms);
        return !SeesExclusiveFlag();
    }

private:
    int number_;
};

TEST(KilledManager, LeavesThePortForTheNextOne)
{
    const RunningUnit unit({"--fast"});
    const Onlooker onlooker(unit.Terminal());
    for (int round = 0; round < 3; ++round) {
        Manager manager(unit.Terminal());
        ASSERT_TRUE(onlooker.SeesExclusiveFlag());
        manager.Kill();
        ASSERT_TRUE(onlooker.SeesItGone());
    }
    EXPECT_EQ(ManagersPort(unit.Terminal()).Exchange("H\r", 14).size(), 14U);
}

TEST(KilledManager, IsDistinguishedFromOneThatStillHasThePort)
{
    const RunningUnit unit({"--fast"});
    const ManagersPort port(unit.Terminal());
    const Onlooker onlooker(unit.Terminal());
    int second = ::open(unit.Terminal().c_str(), O_RDWR | O_NOCTTY);
    const Manager manager(unit.Terminal());
    ::close(second);
    // The answer shows that the unit has come to what happened before.
    EXPECT_EQ(port.Exchange("H\r", 14).size(), 14U);
    EXPECT_TRUE(onlooker.SeesExclusiveFlag());
}

} // namespace
} // namespace tarvex::unit
