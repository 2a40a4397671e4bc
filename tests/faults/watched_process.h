#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace tarvex::tests
{

/// What the system knows of a process.
class WatchedProcess
{
public:
    explicit WatchedProcess(pid_t process);

    /// The processor time that it uses within a while, as a part of that while.
    double LoadWithin(std::chrono::milliseconds span) const;

    /// The terminals that it has open.
    std::vector<std::string> Terminals() const;

    /// How many descriptors it has open.
    int Descriptors() const;

    /// Whether it sleeps, and where in the system: for a failure that says so.
    std::string State() const;

    /// The memory that is its own, in kilobytes.
    long PrivateMemory() const;

private:
    std::string Status(std::string_view name) const;
    double ProcessorTime() const;

    std::filesystem::path folder_;
};

} // namespace tarvex::tests
