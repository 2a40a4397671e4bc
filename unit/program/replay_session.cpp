#include "unit/program/replay_session.h"

#include "unit/program/link_file.h"

#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <utility>

namespace tarvex::unit
{

namespace
{
std::vector<LogLine> RecordIn(const std::string& path)
{
    std::ifstream file(path);
    if (!file) throw std::runtime_error("record \"" + path + "\" cannot be read");
    return ReadLog(file);
}
} // namespace

ReplaySession::ReplaySession(const Options& options)
    : options_(options), waiter_(options.awake), replay_(RecordIn(options.replay), options.pace)
{
    replay_.SetListener([this](const std::string& difference) {
        same_ = false;
        std::cout << difference << std::endl;
    });
}

bool ReplaySession::Run()
{
    std::unique_ptr<LinkFile> link;
    if (!options_.link.empty()) link = std::make_unique<LinkFile>(options_.link, terminal_.Path());
    std::cout << terminal_.Path() << std::endl;
    while (Exchange(waiter_.Wait(terminal_.Number(), terminal_.Closings(), replay_.NextDue()))) {
    }
    replay_.Finish();
    return same_;
}

bool ReplaySession::Exchange(Waiter::Woken woken)
{
    if (woken == Waiter::Woken::ByEndRequest) return false;
    if (woken == Waiter::Woken::ByNotice) terminal_.NoteClosings();
    if (woken == Waiter::Woken::ByBytes) replay_.Receive(terminal_.Read(), waiter_.Now());
    const auto delivery = replay_.Deliver(waiter_.Now());
    terminal_.Write(delivery.bytes);
    if (delivery.hangUp) terminal_.HangUp();
    if (!std::exchange(played_, replay_.IsPlayed()) && played_)
        std::cout << "the record has been played" << std::endl;
    return !delivery.hangUp;
}

} // namespace tarvex::unit
