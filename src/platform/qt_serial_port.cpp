#include "platform/qt_serial_port.h"

#include "core/failure.h"
#include "platform/device_lock.h"
#include "platform/opening_refusal.h"
#include "platform/qt_path.h"
#include "platform/reply_pause.h"
#include "platform/text/qt_text.h"

#include <QSerialPort>
#include <QSignalBlocker>

#include <optional>
#include <utility>

#ifndef _WIN32
#include <poll.h>
#include <unistd.h>
#endif

namespace tarvex::platform
{

namespace
{

constexpr qint64 kInBufferSize = 1024;

/// True when the port's device is gone for good. The error that the toolkit reports does not show
/// it: it is read from a number that the vanished device has not set.
bool HasVanished(const QSerialPort& port, QSerialPort::SerialPortError error)
{
#ifdef _WIN32
    Q_UNUSED(port);
    return error == QSerialPort::ResourceError;
#else
    Q_UNUSED(error);
    pollfd state{port.handle(), 0, 0};
    return ::poll(&state, 1, 0) < 0 || (state.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
#endif
}

/// Gives the line what it takes at once, without the toolkit's detour through its notifiers: the
/// unit waits. Returns how many bytes that were.
std::size_t PutAtOnce(const QSerialPort& port, std::string_view bytes)
{
#ifdef _WIN32
    Q_UNUSED(port);
    Q_UNUSED(bytes);
    return 0;
#else
    if (port.bytesToWrite() > 0) return 0; // earlier ones go first
    const ssize_t put = ::write(port.handle(), bytes.data(), bytes.size());
    return put > 0 ? static_cast<std::size_t>(put) : 0;
#endif
}

} // namespace

/// One opening, from Open to Close: what its device has queued for later dies with it and can never
/// touch the next one.
class QtSerialPort::Opening
{
public:
    Opening(const std::filesystem::path& device, const PortSurroundings& surroundings);
    ~Opening();
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;

    void Send(std::string_view bytes);
    int Count() const;
    std::string TakeAll();
    void Expect(int count) { pause_.Expect(count); }

private:
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
    bool vanished_ = false;
};

QtSerialPort::Opening::Opening(const std::filesystem::path& device,
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
}

/// Emptied first, for the system's close would wait until the last byte has left the line.
QtSerialPort::Opening::~Opening()
{
    const QSignalBlocker quiet(port_);
    if (port_.isOpen() && !vanished_) port_.clear();
    LetGo();
}

void QtSerialPort::Opening::Configure()
{
    port_.setBaudRate(QSerialPort::Baud9600);
    port_.setDataBits(QSerialPort::Data8);
    port_.setParity(QSerialPort::NoParity);
    port_.setStopBits(QSerialPort::TwoStop);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    port_.setReadBufferSize(kInBufferSize);
}

void QtSerialPort::Opening::Empty()
{
    port_.clear();
    ResumeReading();
}

/// After a clear, or after bytes that were gone when the toolkit came to read them, the port can
/// stay deaf: setting the size, also to what it is, starts the reading again.
void QtSerialPort::Opening::ResumeReading()
{
    port_.setReadBufferSize(kInBufferSize);
}

void QtSerialPort::Opening::Send(std::string_view bytes)
{
    if (vanished_) return;
    pause_.NoteOutput(static_cast<qint64>(bytes.size()));
    bytes.remove_prefix(PutAtOnce(port_, bytes));
    if (bytes.empty()) return;
    port_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    // Now, not on the next pass of the event loop; what the line does not take yet follows there.
    port_.flush();
}

int QtSerialPort::Opening::Count() const
{
    return vanished_ ? 0 : static_cast<int>(port_.bytesAvailable());
}

std::string QtSerialPort::Opening::TakeAll()
{
    if (vanished_) return {};
    pause_.End();
    const QByteArray bytes = port_.readAll();
    return {bytes.begin(), bytes.end()};
}

void QtSerialPort::Opening::NoteError(QSerialPort::SerialPortError error)
{
    if (error != QSerialPort::NoError && !vanished_) vanished_ = HasVanished(port_, error);
}

/// Queued, for the toolkit is still at work on the port while it reports; dropped with the port.
void QtSerialPort::Opening::Recover()
{
    if (vanished_) {
        LetGo();
    } else {
        ResumeReading();
    }
}

/// The lock goes too: while anything of ours is open on a pulled adapter, its number stays taken
/// and the adapter comes back under another one.
void QtSerialPort::Opening::LetGo()
{
    lowLatency_.reset();
    pause_.End();
    port_.close();
    lock_.Release();
}

QtSerialPort::QtSerialPort(PortFinder finder, PortSurroundings surroundings)
    : finder_(std::move(finder)), surroundings_(std::move(surroundings))
{
}

QtSerialPort::~QtSerialPort() = default;

void QtSerialPort::SetCommPort(int number)
{
    if (opening_) throw RunTimeFailure("Port is open");
    number_ = number;
}

void QtSerialPort::Open()
{
    if (opening_) throw RunTimeFailure("Port already open");
    const PortChoice choice = finder_.Find(number_);
    try {
        if (choice.device.empty()) throw RunTimeFailure("No such port");
        OpenDevice(choice.device);
        Note(choice.device, {});
    } catch (const DeviceHeld&) {
        NoteHeld(choice.device);
        throw;
    } catch (const RunTimeFailure&) {
        Note(choice.device, RefusalText(choice.device, surroundings_.characterDevices));
        throw;
    }
}

void QtSerialPort::NoteHeld(const std::filesystem::path& device) const
{
    OpeningNotes& notes = *surroundings_.notes;
    const auto holder = HolderOf(device, surroundings_.locks, notes.Of(device).holder);
    notes.Put(device, {.held = true, .holder = holder ? holder->process : 0});
    Note(device, HeldText(holder));
}

void QtSerialPort::Note(const std::filesystem::path& device, const std::string& refusal) const
{
    surroundings_.notes->PutLast(number_, {device, surroundings_.timeOfDay(), refusal});
}

void QtSerialPort::OpenDevice(const std::filesystem::path& device)
{
    opening_ = std::make_unique<Opening>(device, surroundings_);
    const int latency = LatencyMilliseconds(device, surroundings_.characterDevices);
    surroundings_.notes->Put(device, {.latencyMilliseconds = latency});
}

void QtSerialPort::Close()
{
    opening_.reset();
}

void QtSerialPort::Output(std::string_view bytes)
{
    RequireOpen().Send(bytes);
}

void QtSerialPort::ExpectInput(int count)
{
    if (opening_) opening_->Expect(count);
}

int QtSerialPort::InBufferCount()
{
    return RequireOpen().Count();
}

std::string QtSerialPort::Input()
{
    return RequireOpen().TakeAll();
}

QtSerialPort::Opening& QtSerialPort::RequireOpen() const
{
    if (!opening_) throw RunTimeFailure("Port not open");
    return *opening_;
}

} // namespace tarvex::platform
