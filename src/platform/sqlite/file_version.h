#pragma once

#include <sys/stat.h>

#include <array>
#include <filesystem>

namespace tarvex::platform
{

class SqliteConnection;

/// Distinguishes one state of a database's file from another: it changes with every commit of any
/// program, and when another file is put in its place.
class FileVersion
{
public:
    /// That of no file.
    FileVersion() = default;

    /// That of the connection's file. Inside a transaction it belongs to what the transaction
    /// reads.
    explicit FileVersion(const SqliteConnection& connection);

    /// True when both are states of one and the same file.
    bool IsOfSameFile(const FileVersion& other) const
    {
        return device_ == other.device_ && file_ == other.file_;
    }

    /// Of the file nothing but which one it is remains known: it differs from every state.
    void Forget() { size_ = -1; }

    friend bool operator==(const FileVersion&, const FileVersion&) = default;

private:
    /// From the first page: the change counter and three more numbers.
    std::array<char, 16> counters_{};
    dev_t device_ = 0;
    ino_t file_ = 0;
    off_t size_ = 0;
    time_t changedSeconds_ = 0;
    long changedNanoseconds_ = 0;
};

} // namespace tarvex::platform
