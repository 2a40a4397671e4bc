// Exchanges over a pseudo terminal: the link on the toolkit's port, and the same bytes by plain
// system calls, in turns, so that both meet the same load of the machine. One exchange is a wake
// and a page. Prints the fastest, the middle and the slowest ratio of the two.

#include "core/failure_rule.h"
#include "link/operation_end.h"
#include "platform/echoing_unit.h"
#include "platform/port_finder.h"
#include "platform/qt_event_pump.h"
#include "platform/qt_serial_port.h"
#include "platform/qt_tick_timer.h"
#include "support/scripted_boxes.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <fcntl.h>
#include <functional>
#include <sys/resource.h>
#include <vector>

namespace tarvex::tests
{
namespace
{

using Clock = std::chrono::steady_clock;

constexpr int kExchanges = 500;
constexpr int kRounds = 21;

struct Rate {
    double exchangesASecond = 0;
    double medianMicroseconds = 0;
    double slowestOfAHundred = 0; ///< microseconds, 99th percentile
    double processorSeconds = 0;
};

double ProcessorSeconds()
{
    rusage usage{};
    ::getrusage(RUSAGE_THREAD, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

Rate Measure(const std::function<void()>& exchange)
{
    using Microseconds = std::chrono::duration<double, std::micro>;
    std::vector<double> times;
    const double processorBefore = ProcessorSeconds();
    const auto start = Clock::now();
    for (int count = 0; count < kExchanges; ++count) {
        const auto before = Clock::now();
        exchange();
        times.push_back(Microseconds(Clock::now() - before).count());
    }
    const double seconds = Microseconds(Clock::now() - start).count() / 1e6;
    std::sort(times.begin(), times.end());
    return {kExchanges / seconds, times[kExchanges / 2], times[kExchanges * 99 / 100],
            ProcessorSeconds() - processorBefore};
}

void Print(const char* name, const Rate& rate)
{
    std::printf("%-14s %8.0f exchanges/s  median %6.1f us  p99 %6.1f us  processor %.3f s\n", name,
                rate.exchangesASecond, rate.medianMicroseconds, rate.slowestOfAHundred,
                rate.processorSeconds);
}

Rate LinkRate(const PseudoTerminal& terminal)
{
    const TemporaryFolder folder;
    std::filesystem::create_symlink(terminal.Device(), folder / "com1");
    const ProgramEnd end;
    WorkingState state;
    ScriptedBoxes boxes;
    platform::QtEventPump pump(end);
    platform::QtTickTimer timer([&] { CountTick(state); });
    platform::QtSerialPort port(platform::PortFinder(folder.Path()));
    const Line line{port, pump, timer, boxes, state, nullptr};
    DeviceLink link(line);
    OperatorView view(line);
    SkipOnError rule;
    link.OpenPort();
    const Rate rate = Measure([&] {
        link.UntimedWake();
        link.SendFrame("a00100");
        link.AwaitReply(50);
    });
    EndOperation(link, view);
    return rate;
}

void PlainExchange(int device, std::string_view bytes, std::size_t expected)
{
    if (::write(device, bytes.data(), bytes.size()) < 0) std::abort();
    std::array<char, 1024> reply{};
    for (std::size_t received = 0; received < expected;) {
        pollfd state{device, POLLIN, 0};
        ::poll(&state, 1, -1);
        const ssize_t got = ::read(device, reply.data(), reply.size());
        if (got < 0) std::abort();
        received += static_cast<std::size_t>(got);
    }
}

Rate PlainRate(const PseudoTerminal& terminal)
{
    const int device = ::open(terminal.Device().c_str(), O_RDWR | O_NOCTTY);
    const Rate rate = Measure([&] {
        PlainExchange(device, "}", 1);
        PlainExchange(device, "a00100\r", 50);
    });
    ::close(device);
    return rate;
}

} // namespace
} // namespace tarvex::tests

int main(int argc, char** argv)
try {
    using namespace tarvex::tests;
    const QCoreApplication application(argc, argv);
    const PseudoTerminal terminal;
    const EchoingUnit unit(terminal);
    std::vector<double> ratios;
    for (int round = 0; round < kRounds; ++round) {
        const Rate plain = PlainRate(terminal);
        const Rate link = LinkRate(terminal);
        Print("system calls", plain);
        Print("link", link);
        ratios.push_back(link.exchangesASecond / plain.exchangesASecond);
    }
    std::sort(ratios.begin(), ratios.end());
    std::printf("link / system calls: %.2f, median %.2f, %.2f\n", ratios.back(),
                ratios[kRounds / 2], ratios.front());
} catch (const std::exception& failure) {
    std::fprintf(stderr, "exchange_rate: %s\n", failure.what());
    return 1;
}
