#pragma once

#include <array>
#include <atomic>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex::bench
{

/// Two processes that take all the processor time they can get.
class Hogs
{
public:
    Hogs()
    {
        for (pid_t& hog : hogs_) {
            hog = fork();
            if (hog != 0) continue;
            std::atomic<unsigned> count = 0;
            for (;;)
                ++count;
        }
    }
    ~Hogs()
    {
        for (const pid_t hog : hogs_) {
            kill(hog, SIGKILL);
            waitpid(hog, nullptr, 0);
        }
    }
    Hogs(const Hogs&) = delete;
    Hogs& operator=(const Hogs&) = delete;

private:
    std::array<pid_t, 2> hogs_{};
};

} // namespace tarvex::bench
