#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

namespace tarvex::tests
{

/// A serial line in the machine: the program opens Device(), the test is the unit at the far end.
/// The line is raw from the start, and a descriptor of the test's own keeps it alive between two
/// openings.
class PseudoTerminal
{
public:
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    const std::filesystem::path& Device() const { return device_; }

    /// The unit sends; all of it, however slowly the program takes it.
    void Send(std::string_view bytes) const;

    /// What the unit has received within `limit`: at least `count` bytes unless the time ran out.
    std::string Receive(std::size_t count,
                        std::chrono::milliseconds limit = std::chrono::seconds(5)) const;

    /// Waits until `count` bytes are at the program's end of the line, unread.
    void AwaitArrival(int count) const;

    /// The far end goes, as an adapter does that is pulled.
    void HangUp();

    /// The descriptor of the unit's end.
    int Master() const { return master_; }

    /// The descriptor of the program's end that keeps the line alive.
    int Slave() const { return slave_; }

private:
    int master_ = -1;
    int slave_ = -1;
    std::filesystem::path device_;
};

} // namespace tarvex::tests
