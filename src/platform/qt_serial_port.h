#pragma once

#include "core/serial_port.h"
#include "platform/port_finder.h"
#include "platform/port_opening.h"
#include "platform/port_surroundings.h"

#include <memory>
#include <string>
#include <string_view>

namespace tarvex::platform
{

/// The serial port in the event queue; received bytes and an adapter's disappearance reach it only
/// while events are processed.
///
/// A device that vanishes while open leaves the port open and silent: nothing more is received,
/// what was received and not taken is gone, output is dropped. Close ends that as always.
class QtSerialPort : public SerialPort
{
public:
    /// `surroundings` are where it looks on this machine; a test gives its own.
    explicit QtSerialPort(PortFinder finder, PortSurroundings surroundings = {});
    ~QtSerialPort() override;

    void SetCommPort(int number) override;
    void Open() override;
    void Close() override;
    void Output(std::string_view bytes) override;
    void ExpectInput(int count) override;
    bool AwaitRest() override;
    int InBufferCount() override;
    std::string Input() override;

private:
    void OpenDevice(const std::filesystem::path& device);
    void NoteHeld(const std::filesystem::path& device) const;
    void Note(const std::filesystem::path& device, const std::string& refusal) const;
    PortOpening& RequireOpen() const;

    PortFinder finder_;
    PortSurroundings surroundings_;
    int number_ = 1;
    std::unique_ptr<PortOpening> opening_; // null when not open
};

} // namespace tarvex::platform
