#include "bench_world.h"

#include "core/start_up.h"

#include <QTimer>

#include <iostream>
#include <string>
#include <sys/resource.h>

namespace tarvex::bench
{

double ProcessorSeconds()
{
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
           1e-6 * static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec);
}

double TimedPort::Wall() const
{
    return std::chrono::duration<double>(last_ - first_).count();
}

void TimedPort::Forget()
{
    used_ = false;
    last_ = first_;
}

void TimedPort::Output(std::string_view bytes)
{
    if (!used_) first_ = Clock::now();
    used_ = true;
    port_.Output(bytes);
}

std::string TimedPort::Input()
{
    auto bytes = port_.Input();
    last_ = Clock::now();
    return bytes;
}

void BenchWorld::SilentBoxes::Critical(std::string_view text, std::string_view)
{
    std::cerr << "unexpected box: " << text << '\n';
    std::exit(1);
}

BenchWorld::BenchWorld(const QStringList& unitOptions)
    : unit(folder.Path(), unitOptions), port_(platform::PortFinder(folder.Path()))
{
    LoadMainForm(panel, state, [this] { return folder.Path(); });
    state.reportFolder = folder.Path();
}

Cost BenchWorld::Measure(const std::function<void(DeviceLink&)>& command)
{
    timed_.Forget();
    const auto start = std::chrono::steady_clock::now();
    const double processor = ProcessorSeconds();
    handlers_.Run([&] {
        DeviceLink link(line);
        command(link);
    });
    return {timed_.Wall(),
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
            ProcessorSeconds() - processor};
}

void BenchWorld::Later(int milliseconds, const std::function<void()>& event)
{
    QTimer::singleShot(milliseconds, event);
}

void BenchWorld::EndLater(int milliseconds)
{
    Later(milliseconds, [this] { end_.End(0); });
}

} // namespace tarvex::bench
