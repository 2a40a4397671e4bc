#include "platform/port_opening.h"

#include "platform/windows_serial_handle.h"

#include <QTimer>
#include <QWinEventNotifier>

#include <chrono>
#include <string>
#include <utility>

namespace tarvex::platform
{

namespace
{

using namespace std::chrono_literals;

constexpr auto kPauseAfterNothing = 100ms;

/// One call to the system that ends later, and the event that says so.
struct Transfer {
    Transfer() : overlapped{} { overlapped.hEvent = done.Get(); }

    SystemHandle done{::CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    OVERLAPPED overlapped;
    bool underWay = false;
};

/// Reads with one call that is always under way, for the byte that comes next; the bytes that have
/// come with it are taken too. Writes with one call at a time.
class WindowsPortOpening : public PortOpening
{
public:
    explicit WindowsPortOpening(const std::filesystem::path& device);
    ~WindowsPortOpening() override { LetGo(); }
    WindowsPortOpening(const WindowsPortOpening&) = delete;
    WindowsPortOpening& operator=(const WindowsPortOpening&) = delete;

    void Send(std::string_view bytes) override;
    int Count() const override { return static_cast<int>(received_.size()); }
    std::string TakeAll() override { return std::exchange(received_, {}); }
    void Expect(int) override {} // each arrival is looked at
    bool AwaitRest() override { return false; }

private:
    void StartReading();
    void StartWriting();
    void EndReading();
    void EndWriting();
    void TakeRest(DWORD count);
    bool Ended(Transfer& transfer, DWORD& count);
    void Cancel(Transfer& transfer);
    void Vanish();
    void LetGo();

    SystemHandle port_;
    Transfer reading_;
    Transfer writing_;
    Transfer takingRest_;
    QWinEventNotifier readingEnds_{reading_.done.Get()};
    QWinEventNotifier writingEnds_{writing_.done.Get()};
    QTimer nextReading_;
    char next_ = 0; // where the read under way puts its byte
    std::string received_;
    std::string leaving_; // what the write under way reads from
    std::string queued_;
};

WindowsPortOpening::WindowsPortOpening(const std::filesystem::path& device)
    : port_(OpenSerialHandle(device))
{
    nextReading_.setSingleShot(true);
    nextReading_.callOnTimeout([this] { StartReading(); });
    QObject::connect(&readingEnds_, &QWinEventNotifier::activated, &nextReading_,
                     [this] { EndReading(); });
    QObject::connect(&writingEnds_, &QWinEventNotifier::activated, &nextReading_,
                     [this] { EndWriting(); });
    StartReading();
}

void WindowsPortOpening::Send(std::string_view bytes)
{
    if (!port_) return;
    queued_ += bytes;
    if (!writing_.underWay) StartWriting();
}

void WindowsPortOpening::StartReading()
{
    if (!port_) return;
    reading_.underWay = true;
    if (!::ReadFile(port_.Get(), &next_, 1, nullptr, &reading_.overlapped) &&
        ::GetLastError() != ERROR_IO_PENDING) {
        reading_.underWay = false;
        Vanish();
    }
}

void WindowsPortOpening::StartWriting()
{
    leaving_ = std::exchange(queued_, {});
    writing_.underWay = true;
    const auto count = static_cast<DWORD>(leaving_.size());
    if (!::WriteFile(port_.Get(), leaving_.data(), count, nullptr, &writing_.overlapped) &&
        ::GetLastError() != ERROR_IO_PENDING) {
        writing_.underWay = false;
        Vanish();
    }
}

/// A read that ends without its byte is one of a device that is about to go; asking again at once
/// would keep the processor busy.
void WindowsPortOpening::EndReading()
{
    DWORD count = 0;
    if (!reading_.underWay) return;
    if (!Ended(reading_, count)) return Vanish();
    const auto rest = BytesReceived(port_.Get());
    if (!rest) return Vanish();
    if (count == 0) return nextReading_.start(kPauseAfterNothing);
    received_ += next_;
    TakeRest(*rest);
    StartReading();
}

/// They are there, so that this does not wait.
void WindowsPortOpening::TakeRest(DWORD count)
{
    if (count == 0) return;
    std::string rest(count, '\0');
    OVERLAPPED& call = takingRest_.overlapped;
    if (!::ReadFile(port_.Get(), rest.data(), count, nullptr, &call) &&
        ::GetLastError() != ERROR_IO_PENDING)
        return;
    ::GetOverlappedResult(port_.Get(), &call, &count, TRUE);
    received_.append(rest, 0, count);
}

void WindowsPortOpening::EndWriting()
{
    DWORD count = 0;
    if (!writing_.underWay) return;
    if (!Ended(writing_, count)) return Vanish();
    if (!queued_.empty()) StartWriting();
}

bool WindowsPortOpening::Ended(Transfer& transfer, DWORD& count)
{
    transfer.underWay = false;
    ::ResetEvent(transfer.done.Get()); // or the queue would be told again
    return ::GetOverlappedResult(port_.Get(), &transfer.overlapped, &count, FALSE) != 0;
}

/// The system may write to what belongs to a call until that has ended.
void WindowsPortOpening::Cancel(Transfer& transfer)
{
    if (!std::exchange(transfer.underWay, false)) return;
    DWORD count = 0;
    ::CancelIoEx(port_.Get(), &transfer.overlapped);
    ::GetOverlappedResult(port_.Get(), &transfer.overlapped, &count, TRUE);
}

/// While a pulled adapter is kept open, its number stays taken and it comes back under another one.
void WindowsPortOpening::Vanish()
{
    received_.clear();
    LetGo();
}

void WindowsPortOpening::LetGo()
{
    if (!port_) return;
    nextReading_.stop();
    readingEnds_.setEnabled(false);
    writingEnds_.setEnabled(false);
    Cancel(reading_);
    Cancel(writing_);
    port_.Close();
}

} // namespace

std::unique_ptr<PortOpening> OpenDevice(const std::filesystem::path& device,
                                        const PortSurroundings&)
{
    return std::make_unique<WindowsPortOpening>(device);
}

} // namespace tarvex::platform
