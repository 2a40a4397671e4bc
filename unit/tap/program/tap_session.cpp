#include "unit/tap/program/tap_session.h"

#include "unit/program/link_file.h"

#include <array>
#include <iostream>
#include <memory>
#include <span>
#include <stdexcept>

namespace tarvex::unit
{

namespace
{
constexpr std::string_view kOpens = "opens the port";
constexpr std::string_view kCloses = "closes the port";
constexpr std::string_view kDamaged = "damaged character";
} // namespace

TapSession::TapSession(const TapOptions& options)
    : options_(options), device_(options.device), watch_(terminal_.Path()), log_(OpenLog())
{
    terminal_.LeaveToManager();
}

std::ostream& TapSession::OpenLog()
{
    if (options_.log == "-") return std::cout;
    logFile_.open(options_.log, std::ios::trunc);
    if (!logFile_) throw std::runtime_error("log \"" + options_.log + "\" cannot be written");
    return logFile_;
}

void TapSession::Run()
{
    std::unique_ptr<LinkFile> link;
    if (!options_.link.empty()) link = std::make_unique<LinkFile>(options_.link, terminal_.Path());
    std::cout << terminal_.Path() << std::endl;
    Serve();
    log_.Finish();
}

void TapSession::Serve()
{
    // While nobody holds the manager's end open it is hung up, which would end every wait at once.
    const std::array<int, 3> all{device_.Number(), watch_.Number(), terminal_.Number()};
    for (;;) {
        const auto watched = std::span(all).first(managerThere_ ? 3 : 2);
        const auto woken = waiter_.Wait(watched, log_.NextDue());
        FollowOpening();
        if (!PassFromUnit()) return terminal_.HangUp();
        if (managerThere_) PassFromManager();
        log_.WriteDue(waiter_.Now());
        if (woken == Waiter::Woken::ByEndRequest) return;
    }
}

bool TapSession::PassFromUnit()
{
    const auto bytes = device_.Read();
    if (!bytes) {
        log_.Happened(Speaker::Unit, kHangUpNote, waiter_.Now());
        return false;
    }
    for (const auto& received : marks_.Take(*bytes)) {
        // A terminal carries no marks: the manager gets what its own port would have given it.
        terminal_.Write(received.bytes);
        const auto now = waiter_.Now();
        if (received.kind == Received::Kind::Break) {
            log_.Happened(Speaker::Unit, kBreakNote, now);
            continue;
        }
        log_.Passed(Speaker::Unit, received.bytes, now);
        if (received.kind == Received::Kind::Damaged) log_.Happened(Speaker::Unit, kDamaged, now);
    }
    return true;
}

void TapSession::PassFromManager()
{
    PassSettings();
    const auto bytes = terminal_.Read();
    device_.Write(bytes);
    if (!bytes.empty()) log_.Passed(Speaker::Manager, bytes, waiter_.Now());
    if (terminal_.IsHeldByManager()) return;
    managerThere_ = false;
    device_.SetReady(false);
    log_.Happened(Speaker::Manager, kCloses, waiter_.Now());
}

void TapSession::PassSettings()
{
    const auto settings = terminal_.Settings();
    const auto text = SettingsText(settings);
    if (text == settings_) return;
    device_.Apply(settings);
    settings_ = text;
    log_.Happened(Speaker::Manager, text, waiter_.Now());
}

void TapSession::FollowOpening()
{
    if (!watch_.WasOpened() || managerThere_) return;
    managerThere_ = true;
    device_.SetReady(true);
    log_.Happened(Speaker::Manager, kOpens, waiter_.Now());
}

} // namespace tarvex::unit
