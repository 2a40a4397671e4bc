#include "real_line/ftdi_adapter.h"

#include "real_line/await.h"
#include "real_line/usb_socket.h"

#include <algorithm>
#include <array>
#include <linux/usb/functionfs.h>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace tarvex::tests
{

namespace
{

constexpr std::size_t kCharacters = kPacket - kQuietStatus.size(); // of a packet

/// A short rest of a thread that has nothing to do.
void Rest()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
}

} // namespace

FtdiAdapter::FtdiAdapter()
    : sender_([this] { Send(); }), receiver_([this] { Receive(); }), control_([this] { Control(); })
{
    Plug();
}

FtdiAdapter::~FtdiAdapter()
{
    Pull();
}

void FtdiAdapter::Plug()
{
    device_ = PlugIn();
}

void FtdiAdapter::Pull()
{
    PullOut();
}

LineState FtdiAdapter::State() const
{
    const std::scoped_lock lock(mutex_);
    return registers_.State();
}

int FtdiAdapter::LatencyTimer() const
{
    const std::scoped_lock lock(mutex_);
    return registers_.LatencyTimer();
}

/// The host takes packets until one is not full.
void FtdiAdapter::SayMarked(std::string_view bytes, Mark mark)
{
    std::string status(kQuietStatus);
    status.back() = static_cast<char>(status.back() | static_cast<char>(mark));
    const std::scoped_lock lock(mutex_);
    std::size_t count = kCharacters;
    for (; count == kCharacters; bytes.remove_prefix(count)) {
        count = std::min(bytes.size(), kCharacters);
        packets_.push_back(status + std::string(bytes.substr(0, count)));
    }
}

void FtdiAdapter::AwaitTaken() const
{
    const auto isTaken = [this] {
        const std::scoped_lock lock(mutex_);
        return packets_.empty() && !sending_;
    };
    Await(isTaken, "the host takes nothing");
}

void FtdiAdapter::Control()
{
    pollfd file{function_.control.Number(), POLLIN, 0};
    usb_functionfs_event event{};
    if (::poll(&file, 1, -1) <= 0 || ::read(file.fd, &event, sizeof event) <= 0) return Rest();
    if (event.type != FUNCTIONFS_SETUP) return;
    if (++requests_ != pullAt_) return Obey(event.u.setup);
    pullAt_ = 0;
    Pull();
}

/// A request that wants bytes and gets none is refused by reading where a write is due.
void FtdiAdapter::Obey(const usb_ctrlrequest& request)
{
    if (IsReset(request)) Empty();
    std::string answer;
    {
        const std::scoped_lock lock(mutex_);
        answer = registers_.Obey(request);
    }
    const int file = function_.control.Number();
    const auto length = std::min<std::size_t>(answer.size(), request.wLength);
    const auto done =
        length > 0 ? ::write(file, answer.data(), length) : ::read(file, answer.data(), 0);
    if (done < 0) Rest();
}

/// What the host has not asked for yet is in the sender's hands.
void FtdiAdapter::Empty()
{
    {
        const std::scoped_lock lock(mutex_);
        packets_.clear();
    }
    sender_.InterruptUntil([this] { return !sending_; });
}

void FtdiAdapter::Receive()
{
    std::array<char, kPacket> bytes{};
    const auto count = ::read(function_.out.Number(), bytes.data(), bytes.size());
    if (count < 0) return Rest();
    const auto answer = farEnd.Hear({bytes.data(), static_cast<std::size_t>(count)});
    if (!answer.empty()) Say(answer);
}

/// A packet that does not go out is lost with the adapter, or was to be forgotten.
void FtdiAdapter::Send()
{
    const std::string packet = Next();
    if (packet.empty()) return Rest();
    if (::write(function_.in.Number(), packet.data(), packet.size()) < 0) Rest();
    sending_ = false;
}

std::string FtdiAdapter::Next()
{
    const std::scoped_lock lock(mutex_);
    if (packets_.empty()) return {};
    sending_ = true;
    std::string packet = std::move(packets_.front());
    packets_.pop_front();
    return packet;
}

} // namespace tarvex::tests
