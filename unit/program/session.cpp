#include "unit/program/session.h"

#include "unit/conversation.h"
#include "unit/memory_file.h"
#include "unit/program/link_file.h"

#include <ctime>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>

namespace tarvex::unit
{

namespace
{
Memory MemoryFor(const Options& options)
{
    const bool kept = !options.memory.empty() && std::filesystem::exists(options.memory);
    auto memory = kept ? LoadMemory(options.memory) : (options.demo ? DemoMemory() : BlankMemory());
    for (const auto& fill : options.fills)
        FillBlock(memory, fill.block, fill.survey);
    return memory;
}

std::string MachineTime()
{
    const auto now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    std::string digits(13, '\0');
    digits.resize(std::strftime(digits.data(), digits.size(), "%y%m%d%H%M%S", &local));
    return digits;
}
} // namespace

Session::Session(const Options& options)
    : options_(options),
      waiter_(options.awake),
      unit_(MemoryFor(options), options.faults),
      pacer_(unit_, options.pace),
      adapter_(pacer_, options.adapter)
{
    SetUpClock();
    SetUpLog();
    KeepMemory();
}

void Session::SetUpClock()
{
    auto& clock = unit_.RunningClock();
    clock.Set(options_.clock.empty() ? MachineTime() : options_.clock, waiter_.Now());
    if (options_.clockStopped) clock.Stop(waiter_.Now());
}

void Session::SetUpLog()
{
    if (options_.log.empty()) return;
    if (options_.log != "-") logFile_.open(options_.log, std::ios::trunc);
    if (!logFile_) throw std::runtime_error("log \"" + options_.log + "\" cannot be written");
    std::ostream& log = options_.log == "-" ? std::cout : logFile_;
    unit_.SetListener(
        [&log](const Heard& heard, Time at) { log << LineOf(heard, at) << std::endl; });
    pacer_.SetListener(
        [&log](const Reply& reply, Time at) { log << LineOf(reply, at) << std::endl; });
}

void Session::Run()
{
    std::unique_ptr<LinkFile> link;
    if (!options_.link.empty()) link = std::make_unique<LinkFile>(options_.link, terminal_.Path());
    std::cout << terminal_.Path() << std::endl;
    Serve();
    KeepMemory();
}

void Session::Serve()
{
    while (Exchange(waiter_.Wait(terminal_.Number(), terminal_.Closings(), adapter_.NextDue())))
        if (unit_.CountOf(Moment::Written) != keptWrites_) KeepMemory();
}

bool Session::Exchange(Waiter::Woken woken)
{
    if (woken == Waiter::Woken::ByEndRequest) return false;
    if (woken == Waiter::Woken::ByNotice) terminal_.NoteClosings();
    if (woken == Waiter::Woken::ByBytes) adapter_.Receive(terminal_.Read(), waiter_.Now());
    const Time start = waiter_.Now();
    const auto delivery = adapter_.Deliver(start);
    if (!delivery.bytes.empty()) adapter_.Delay(waiter_.Now() - start);
    terminal_.Write(delivery.bytes);
    if (delivery.hangUp) terminal_.HangUp();
    return !delivery.hangUp;
}

void Session::KeepMemory()
{
    keptWrites_ = unit_.CountOf(Moment::Written);
    if (!options_.memory.empty()) SaveMemory(unit_.StoredMemory(), options_.memory);
}

} // namespace tarvex::unit
