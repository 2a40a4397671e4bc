#pragma once

#include "platform/pseudo_terminal.h"

#include <array>
#include <atomic>
#include <poll.h>
#include <string>
#include <string_view>
#include <thread>
#include <unistd.h>

namespace tarvex::tests
{

/// A unit in a thread of its own that answers as fast as it can: "}" with "!", and a frame that
/// ends with CR with one page of 50 bytes.
class EchoingUnit
{
public:
    explicit EchoingUnit(const PseudoTerminal& terminal)
        : thread_([this, master = terminal.Master()] { Run(master); })
    {
    }
    ~EchoingUnit()
    {
        stop_ = true;
        thread_.join();
    }
    EchoingUnit(const EchoingUnit&) = delete;
    EchoingUnit& operator=(const EchoingUnit&) = delete;

    static std::string Page() { return std::string(48, '4') + "\r\n"; }

private:
    static std::string AnswerTo(std::string_view bytes)
    {
        std::string answer;
        for (const char byte : bytes) {
            if (byte == '}') answer += '!';
            if (byte == '\r') answer += Page();
        }
        return answer;
    }

    void Run(int master) const
    {
        std::array<char, 256> bytes{};
        while (!stop_) {
            pollfd state{master, POLLIN, 0};
            if (::poll(&state, 1, 50) <= 0) continue;
            const ssize_t got = ::read(master, bytes.data(), bytes.size());
            if (got <= 0) return;
            const std::string answer = AnswerTo({bytes.data(), static_cast<std::size_t>(got)});
            if (::write(master, answer.data(), answer.size()) < 0) return;
        }
    }

    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

} // namespace tarvex::tests
