#include "platform/pseudo_terminal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <termios.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tarvex::tests
{

using namespace std::chrono_literals;

PseudoTerminal::PseudoTerminal()
{
    termios raw{};
    ::cfmakeraw(&raw);
    std::array<char, 64> name{};
    if (::openpty(&master_, &slave_, name.data(), &raw, nullptr) != 0) {
        throw std::runtime_error("no pseudo terminal");
    }
    device_ = name.data();
}

PseudoTerminal::~PseudoTerminal()
{
    HangUp();
    ::close(slave_);
}

void PseudoTerminal::Send(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(master_, bytes.data(), bytes.size());
        if (written <= 0) throw std::runtime_error("the line does not take the unit's bytes");
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

std::string PseudoTerminal::Receive(std::size_t count, std::chrono::milliseconds limit) const
{
    const auto end = std::chrono::steady_clock::now() + limit;
    std::string received;
    std::array<char, 4096> bytes{};
    while (received.size() < count) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        pollfd state{master_, POLLIN, 0};
        if (::poll(&state, 1, static_cast<int>(std::max(left, 0ms).count())) <= 0) break;
        const ssize_t got = ::read(master_, bytes.data(), bytes.size());
        if (got <= 0) break;
        received.append(bytes.data(), static_cast<std::size_t>(got));
    }
    return received;
}

void PseudoTerminal::AwaitArrival(int count) const
{
    int arrived = 0;
    for (int tries = 0; arrived < count && tries < 500; ++tries) {
        if (tries > 0) std::this_thread::sleep_for(10ms);
        ASSERT_EQ(::ioctl(slave_, FIONREAD, &arrived), 0);
    }
    ASSERT_GE(arrived, count);
}

void PseudoTerminal::HangUp()
{
    if (master_ >= 0) ::close(std::exchange(master_, -1));
}

} // namespace tarvex::tests
