#include "platform/port_opening.h"

#include "core/failure.h"
#include "platform/device_lock.h"
#include "platform/due_input.h"
#include "platform/qt_path.h"
#include "platform/reply_pause.h"
#include "platform/text/qt_text.h"

#include <QSerialPort>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include <poll.h>
#include <unistd.h>

namespace tarvex::platform
{

namespace
{

constexpr qint64 kInBufferSize = 1024;

/// True when the port's device is gone for good. The error that the toolkit reports does not show
/// it: it is read from a number that the vanished device has not set.
bool HasVanished(const QSerialPort& port)
{
    pollfd state{port.handle(), 0, 0};
    return ::poll(&state, 1, 0) < 0 || (state.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

/// What the line gives when that is due, without the toolkit's detour through its notifiers: the
/// unit waits. Nothing from a line that has anything else to say; the toolkit hears that.
std::string GetWhenDue(const QSerialPort& port, const DueInput& input)
{
    if (!AwaitDue(port.handle(), input)) return {};
    std::array<char, kInBufferSize> bytes;
    const ssize_t got = ::read(port.handle(), bytes.data(), bytes.size());
    return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(got, 0))};
}

/// Gives the line what it takes at once, without the toolkit's detour through its notifiers: the
/// unit waits. Returns how many bytes that were.
std::size_t PutAtOnce(const QSerialPort& port, std::string_view bytes)
{
    if (port.bytesToWrite() > 0) return 0; // earlier ones go first
    const ssize_t put = ::write(port.handle(), bytes.data(), bytes.size());
    return put > 0 ? static_cast<std::size_t>(put) : 0;
}

class QtPortOpening : public PortOpening
{
public:
    QtPortOpening(const std::filesystem::path& device, const PortSurroundings& surroundings);
    ~QtPortOpening() override;
    QtPortOpening(const QtPortOpening&) = delete;
    QtPortOpening& operator=(const QtPortOpening&) = delete;

    void Send(std::string_view bytes) override;
    int Count() const override;
    std::string TakeAll() override;
    void Expect(int count) override { pause_.Expect(count, Count()); }
    bool AwaitRest() override;

private:
    void TakeFromToolkit();
    void Configure();
    void Empty();
    void ResumeReading();
    void NoteError(QSerialPort::SerialPortError error);
    void Recover();
    void LetGo();

    DeviceLock lock_;
    QSerialPort port_;
    ReplyPause pause_{port_};
    std::optional<LowLatency> lowLatency_;
    std::string received_; // before what the toolkit still has
    bool vanished_ = false;
};

QtPortOpening::QtPortOpening(const std::filesystem::path& device,
                             const PortSurroundings& surroundings)
    : lock_(device, surroundings.locks)
{
    const auto name = lock_.NameToOpen();
    const SpelledFolder folder(name.parent_path());
    port_.setPortName(folder.Spell(name.filename()));
    Configure();
    if (!port_.open(QIODevice::ReadWrite)) {
        throw RunTimeFailure("Port cannot be opened: " + ToBytes(port_.errorString()));
    }
    // A pseudo terminal has no modem lines and refuses both.
    port_.setDataTerminalReady(true);
    port_.setRequestToSend(false);
    Empty();
    lowLatency_.emplace(lock_.Descriptor(), surroundings.driver);
    // Only from here on: opening, and a line that is refused, report errors that mean nothing.
    QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
                     [this](QSerialPort::SerialPortError error) { NoteError(error); });
    QObject::connect(
        &port_, &QSerialPort::errorOccurred, &port_, [this] { Recover(); }, Qt::QueuedConnection);
    QObject::connect(&port_, &QSerialPort::readyRead, &port_,
                     [this] { pause_.NoteArrival(Count()); });
}

/// Emptied first, for the system's close would wait until the last byte has left the line.
QtPortOpening::~QtPortOpening()
{
    const QSignalBlocker quiet(port_);
    if (port_.isOpen() && !vanished_) port_.clear();
    LetGo();
}

void QtPortOpening::Configure()
{
    port_.setBaudRate(QSerialPort::Baud9600);
    port_.setDataBits(QSerialPort::Data8);
    port_.setParity(QSerialPort::NoParity);
    port_.setStopBits(QSerialPort::TwoStop);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    port_.setReadBufferSize(kInBufferSize);
}

void QtPortOpening::Empty()
{
    port_.clear();
    ResumeReading();
}

/// After a clear, or after bytes that were gone when the toolkit came to read them, the port can
/// stay deaf: setting the size, also to what it is, starts the reading again.
void QtPortOpening::ResumeReading()
{
    port_.setReadBufferSize(kInBufferSize);
}

void QtPortOpening::Send(std::string_view bytes)
{
    if (vanished_) return;
    pause_.NoteOutput(static_cast<qint64>(bytes.size()));
    bytes.remove_prefix(PutAtOnce(port_, bytes));
    if (bytes.empty()) return;
    port_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    // Now, not on the next pass of the event loop; what the line does not take yet follows there.
    port_.flush();
}

int QtPortOpening::Count() const
{
    return vanished_ ? 0 : static_cast<int>(port_.bytesAvailable() + std::ssize(received_));
}

bool QtPortOpening::AwaitRest()
{
    const auto rest = pause_.Rest();
    const std::string got = rest ? GetWhenDue(port_, *rest) : std::string();
    if (got.empty()) {
        pause_.Watch();
        return false;
    }
    TakeFromToolkit();
    received_ += got;
    pause_.NoteArrival(Count());
    return true;
}

void QtPortOpening::TakeFromToolkit()
{
    const qint64 count = port_.bytesAvailable();
    if (count == 0) return;
    const std::size_t before = received_.size();
    received_.resize(before + static_cast<std::size_t>(count));
    const qint64 taken = port_.read(received_.data() + before, count);
    received_.resize(before + static_cast<std::size_t>(std::max<qint64>(taken, 0)));
}

std::string QtPortOpening::TakeAll()
{
    if (vanished_) return {};
    pause_.NoteTaking(Count());
    TakeFromToolkit();
    return std::exchange(received_, {});
}

void QtPortOpening::NoteError(QSerialPort::SerialPortError error)
{
    if (error != QSerialPort::NoError && !vanished_) vanished_ = HasVanished(port_);
}

/// Queued, for the toolkit is still at work on the port while it reports; dropped with the port.
void QtPortOpening::Recover()
{
    if (vanished_) {
        LetGo();
    } else {
        ResumeReading();
    }
}

/// The lock goes too: while anything of ours is open on a pulled adapter, its number stays taken
/// and the adapter comes back under another one.
void QtPortOpening::LetGo()
{
    lowLatency_.reset();
    pause_.End();
    port_.close();
    lock_.Release();
}

} // namespace

std::unique_ptr<PortOpening> OpenDevice(const std::filesystem::path& device,
                                        const PortSurroundings& surroundings)
{
    return std::make_unique<QtPortOpening>(device, surroundings);
}

} // namespace tarvex::platform
