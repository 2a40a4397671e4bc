#pragma once

#include "unit/program/descriptor.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include <termios.h>

namespace tarvex::unit
{

/// The adapter that the unit is connected to, for the length of a tap: opened for this program
/// alone, raw, 9600 baud, two stop bits, set to mark damaged characters and breaks. Its settings
/// are given back at the end.
class SerialDevice
{
public:
    /// Throws std::system_error when it cannot be opened or is held by another program.
    explicit SerialDevice(const std::filesystem::path& path);
    ~SerialDevice();
    SerialDevice(const SerialDevice&) = delete;
    SerialDevice& operator=(const SerialDevice&) = delete;

    /// The descriptor to wait on for bytes.
    int Number() const { return device_.Number(); }

    /// What has come since, with its marks; empty when nothing has, no value once the device is
    /// gone. Never waits.
    std::optional<std::string> Read() const;

    /// Sends bytes; those that the device does not take within a second are lost.
    void Write(std::string_view bytes) const;

    /// Takes speed, character and flow control from the manager's side of the tap.
    void Apply(const termios& wanted);

    /// Raises or drops DTR, as the manager's opening and closing of its port does; RTS stays off. A
    /// device without modem lines is left as it is.
    void SetReady(bool ready) const;

private:
    void AskLowLatency();

    Descriptor device_;
    termios before_{};
    termios now_{};
    std::optional<int> flagsBefore_; // of the driver; no value when it has none
};

/// Speed, bits, parity and stop bits as people write them: "9600 8N2".
std::string SettingsText(const termios& settings);

} // namespace tarvex::unit
