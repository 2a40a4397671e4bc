#pragma once

#include <atomic>
#include <chrono>
#include <csignal>
#include <functional>
#include <thread>

namespace tarvex::tests
{

/// A thread that does the same over and over, and may wait in the system for it.
class InterruptibleThread
{
public:
    /// `round` is what it does; it is interrupted in a wait, which then fails.
    explicit InterruptibleThread(std::function<void()> round)
        : thread_([this, round = std::move(round)] {
              while (!ends_)
                  round();
              ended_ = true;
          })
    {
    }
    ~InterruptibleThread()
    {
        ends_ = true;
        InterruptUntil([this] { return ended_.load(); });
    }
    InterruptibleThread(const InterruptibleThread&) = delete;
    InterruptibleThread& operator=(const InterruptibleThread&) = delete;

    /// Interrupts its waits until the condition holds: the first time it may not have begun one.
    template <class Condition>
    void InterruptUntil(Condition condition)
    {
        struct sigaction quiet {
        };
        quiet.sa_handler = [](int) {};
        ::sigaction(SIGUSR1, &quiet, nullptr);
        while (!condition()) {
            ::pthread_kill(thread_.native_handle(), SIGUSR1);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

private:
    std::atomic<bool> ends_ = false;
    std::atomic<bool> ended_ = false;
    std::jthread thread_;
};

} // namespace tarvex::tests
