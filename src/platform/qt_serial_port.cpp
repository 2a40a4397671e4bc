#include "platform/qt_serial_port.h"

#include "core/failure.h"
#include "platform/device_lock.h"
#include "platform/opening_refusal.h"

#include <utility>

namespace tarvex::platform
{

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
    opening_ = platform::OpenDevice(device, surroundings_);
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

bool QtSerialPort::AwaitRest()
{
    return opening_ && opening_->AwaitRest();
}

int QtSerialPort::InBufferCount()
{
    return RequireOpen().Count();
}

std::string QtSerialPort::Input()
{
    return RequireOpen().TakeAll();
}

PortOpening& QtSerialPort::RequireOpen() const
{
    if (!opening_) throw RunTimeFailure("Port not open");
    return *opening_;
}

} // namespace tarvex::platform
