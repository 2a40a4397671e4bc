#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

namespace tarvex
{

/// A file of fixed-length records, numbered from 1, without header, separator or length word.
/// Every operation raises RunTimeFailure when it cannot be done; its text gives the reason, the
/// step and the file.
class RecordFile
{
public:
    /// `recordLength` in bytes.
    explicit RecordFile(std::size_t recordLength) : recordLength_(recordLength) {}

    /// Opens for reading and writing; made when missing, never truncated. Fails for an empty path,
    /// one with a NUL, a folder, a missing folder, no permission, and when already open.
    void Open(const std::filesystem::path& path);

    /// As Open, and drops whatever the file held.
    void OpenEmptied(const std::filesystem::path& path);

    /// Writes one record. It has reached the system when this returns; beyond the end the file
    /// grows by zero bytes. Fails when not open, when `number` is no whole number from 1, and when
    /// the record cannot be written whole: the file then has the length that it had.
    template <class Record>
    void Put(double number, const Record& record)
    {
        static_assert(std::is_trivially_copyable_v<Record>);
        PutBytes(number, std::as_bytes(std::span(&record, 1)));
    }

    /// Reads one record: the bytes that are there, then blanks. Where the file ends before it or
    /// in it, the end-of-file flag is set, which is no failure. Fails when not open and when
    /// `number` is no whole number from 1; `record` then stays.
    template <class Record>
    void Get(double number, Record& record)
    {
        static_assert(std::is_trivially_copyable_v<Record>);
        GetBytes(number, std::as_writable_bytes(std::span(&record, 1)));
    }

    /// True after a Get that did not find a whole record. Fails when not open.
    bool EndOfFile() const;

    bool IsOpen() const { return stream_.is_open(); }

    /// No effect when not open.
    void Close();

private:
    void OpenAs(const std::filesystem::path& path, std::ios::openmode mode);
    void RequireOpen() const;
    std::streamoff OffsetOf(double number, std::string_view step) const;
    void PutBytes(double number, std::span<const std::byte> record);
    std::streamoff AskSize();
    void CutBackTo(std::streamoff oldSize, std::streamoff end);
    void GetBytes(double number, std::span<std::byte> record);

    std::size_t recordLength_;
    std::filesystem::path path_;
    std::fstream stream_;
    bool endOfFile_ = false;

    // Kept, so that the system is not asked: the unit waits while a page's record is written.
    std::optional<std::streamoff> place_; // where the last put has ended
    std::optional<std::streamoff> size_;  // of the file, as far as this opening has made it
};

/// Deletes one file. Fails when there is none, when it is a folder, when it may not be deleted, and
/// for a path with a NUL.
void DeleteFile(const std::filesystem::path& path);

/// As DeleteFile, but to find none is no failure.
void DeleteFileWhenThere(const std::filesystem::path& path);

} // namespace tarvex
