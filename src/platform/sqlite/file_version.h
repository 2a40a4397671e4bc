#pragma once

#include <array>
#include <cstdint>

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
    std::uint64_t device_ = 0;
    std::uint64_t file_ = 0;
    std::int64_t size_ = 0;
    std::int64_t written_ = 0;
};

} // namespace tarvex::platform
