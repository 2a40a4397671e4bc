#pragma once

#include "core/serial_port.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// A port in memory. It remembers what was asked of it, in order, and hands every output to the
/// unit at its other end.
class ScriptedPort : public SerialPort
{
public:
    /// Every successful operation but the counting: "port 1", "open", "close", and each output and
    /// input with its bytes after "> " and "< ".
    std::vector<std::string> history;

    /// The outputs alone, one an entry.
    std::vector<std::string> sent;

    /// Whether these two are kept.
    bool keepsHistory = true;

    /// Numbers of ports that cannot be opened: absent, held by another program, not permitted.
    std::set<int> refused;

    /// Set when the adapter is pulled: the port stays open and silent until it is closed, and opens
    /// no more.
    bool vanished = false;

    /// The counts that were said to be expected.
    std::vector<int> expected;

    /// What the port does where it is asked for the last of a reply; nothing unless it is set.
    std::function<bool()> awaitRest;

    /// The other end of the line.
    std::function<void(std::string_view)> unit;

    /// Bytes come in; without an open port they are lost.
    void Receive(std::string_view bytes);

    bool IsOpen() const { return open_; }
    int OpenedPort() const { return openedPort_; }

    void SetCommPort(int number) override;
    void Open() override;
    void Close() override;
    void Output(std::string_view bytes) override;
    void ExpectInput(int count) override { expected.push_back(count); }
    bool AwaitRest() override { return awaitRest && awaitRest(); }
    int InBufferCount() override;
    std::string Input() override;

private:
    void RequireOpen() const;

    bool open_ = false;
    int port_ = 1;
    int openedPort_ = 0;
    std::string received_;
};

} // namespace tarvex::tests
