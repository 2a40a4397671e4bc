#pragma once

#include "support/child_program.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::unit
{

/// A program at the line, started in a folder of its own and ended with its owner.
class RunningUnit
{
public:
    /// Starts the program and takes the first line that it prints. `program` is the simulated unit
    /// unless another of its package is named.
    explicit RunningUnit(const std::vector<std::string>& arguments,
                         const char* program = TARVEX_UNIT_PROGRAM);

    /// The terminal's path, as printed; empty when the program ended without one.
    const std::string& Terminal() const { return terminal_; }

    /// What the program prints until its end, after the first line.
    std::string RestOfOutput() { return program_.RestOfOutput(); }

    pid_t Process() const { return program_.Process(); }
    void Signal(int number) const { program_.Signal(number); }

    /// Waits for the end; the exit status, or 128 and the number of the signal that ended it.
    int ExitStatus() { return program_.ExitStatus(); }

private:
    tests::ChildProgram program_;
    std::string terminal_;
};

/// The manager's end of the line: raw bytes, both ways.
class ManagersPort
{
public:
    explicit ManagersPort(const std::filesystem::path& path);
    ~ManagersPort();
    ManagersPort(const ManagersPort&) = delete;
    ManagersPort& operator=(const ManagersPort&) = delete;

    bool IsOpen() const { return number_ >= 0; }
    void Send(std::string_view bytes) const;

    /// Exactly `count` bytes, or fewer when the line was hung up or nothing more came.
    std::string Receive(std::size_t count) const;

    /// Wakes the unit and sends a frame; returns the answer of `count` bytes.
    std::string Exchange(std::string_view frame, std::size_t count) const;

    /// Waits for the hang-up.
    bool IsHungUp() const;

private:
    int number_;
};

} // namespace tarvex::unit
