#include "core/record_file.h"

#include "core/code_page.h"
#include "core/conversion.h"
#include "core/failure.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace tarvex
{

namespace
{

constexpr auto kReadWrite = std::ios::in | std::ios::out | std::ios::binary;
constexpr std::string_view kOpening = "opening";
constexpr std::string_view kReading = "reading";
constexpr std::string_view kWriting = "writing";

/// The reason with the step and the file: all that an operator has to put it right by.
[[noreturn]] void Fail(std::string_view reason, std::string_view step,
                       const std::filesystem::path& path)
{
    throw RunTimeFailure(std::string(reason) + ", " + std::string(step) + " " +
                         code_page::Shown(path));
}

/// The system would end the path at a NUL, and so reach another file.
void RequireWholeName(const std::filesystem::path& path, std::string_view step)
{
    constexpr std::filesystem::path::value_type nul{};
    if (path.empty()) throw RunTimeFailure("Bad file name");
    if (path.native().find(nul) != std::filesystem::path::string_type::npos)
        Fail("Bad file name", step, path);
}

void MakeWhenMissing(const std::filesystem::path& path)
{
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) {
        std::ofstream(path, std::ios::binary | std::ios::app);
    }
}

} // namespace

void RecordFile::Open(const std::filesystem::path& path)
{
    OpenAs(path, kReadWrite);
}

void RecordFile::OpenEmptied(const std::filesystem::path& path)
{
    OpenAs(path, kReadWrite | std::ios::trunc);
}

void RecordFile::OpenAs(const std::filesystem::path& path, std::ios::openmode mode)
{
    if (IsOpen()) throw RunTimeFailure("File already open");
    RequireWholeName(path, kOpening);
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored))
        Fail("Path/File access error", kOpening, path);

    MakeWhenMissing(path);
    stream_.clear();
    stream_.rdbuf()->pubsetbuf(nullptr, 0); // unbuffered: a put is in the file when it returns
    stream_.open(path, mode);
    if (!stream_.is_open()) Fail("Path/File access error", kOpening, path);
    path_ = path;
    endOfFile_ = false;
    place_.reset();
    size_.reset();
}

void RecordFile::Close()
{
    if (IsOpen()) stream_.close();
}

bool RecordFile::EndOfFile() const
{
    RequireOpen();
    return endOfFile_;
}

void RecordFile::RequireOpen() const
{
    if (!IsOpen()) throw RunTimeFailure("Bad file name or number");
}

std::streamoff RecordFile::OffsetOf(double number, std::string_view step) const
{
    if (!(number >= 1) || number > std::numeric_limits<int>::max() ||
        std::floor(number) != number) {
        Fail("Bad record number " + PlainNumber(number), step, path_);
    }
    return (static_cast<std::streamoff>(number) - 1) * static_cast<std::streamoff>(recordLength_);
}

void RecordFile::PutBytes(double number, std::span<const std::byte> record)
{
    RequireOpen();
    const std::streamoff offset = OffsetOf(number, kWriting);
    const std::streamoff end = offset + static_cast<std::streamoff>(record.size());
    const std::streamoff oldSize = size_ ? *size_ : AskSize();

    stream_.clear();
    if (place_ != offset) stream_.seekp(offset);
    stream_.write(reinterpret_cast<const char*>(record.data()),
                  static_cast<std::streamsize>(record.size()));
    stream_.flush();
    if (!stream_) {
        CutBackTo(oldSize, end);
        Fail("Disk full", kWriting, path_);
    }
    place_ = end;
    size_ = std::max(oldSize, end);
}

std::streamoff RecordFile::AskSize()
{
    stream_.clear();
    place_ = stream_.rdbuf()->pubseekoff(0, std::ios::end);
    return *place_;
}

/// Takes away what is there of a record that has not been written whole, up to `end`. Only by its
/// name can the file be cut, and another one may bear that now: one of another size is left alone,
/// and so is one that somebody else has made longer.
void RecordFile::CutBackTo(std::streamoff oldSize, std::streamoff end)
{
    const std::streamoff size = AskSize();
    size_.reset();
    std::error_code error;
    const auto named = std::filesystem::file_size(path_, error);
    if (error || size <= oldSize || size >= end || !std::cmp_equal(named, size)) return;
    std::filesystem::resize_file(path_, static_cast<std::uintmax_t>(oldSize), error);
}

void RecordFile::GetBytes(double number, std::span<std::byte> record)
{
    RequireOpen();
    const std::streamoff offset = OffsetOf(number, kReading);

    stream_.clear();
    place_.reset();
    stream_.seekg(offset);
    stream_.read(reinterpret_cast<char*>(record.data()),
                 static_cast<std::streamsize>(record.size()));
    const std::streamsize found = stream_.gcount();
    endOfFile_ = found < static_cast<std::streamsize>(record.size());
    if (stream_.bad()) Fail("Device I/O error", kReading, path_);
    std::fill(record.begin() + found, record.end(), std::byte{' '});
}

void DeleteFile(const std::filesystem::path& path)
{
    constexpr std::string_view deleting = "deleting";
    RequireWholeName(path, deleting);
    std::error_code error;
    const auto status = std::filesystem::symlink_status(path, error);
    if (error || !std::filesystem::exists(status)) Fail("File not found", deleting, path);
    if (std::filesystem::is_directory(status)) Fail("Path/File access error", deleting, path);
    if (!std::filesystem::remove(path, error) || error) Fail("Permission denied", deleting, path);
}

void DeleteFileWhenThere(const std::filesystem::path& path)
{
    std::error_code unknown;
    if (std::filesystem::exists(std::filesystem::symlink_status(path, unknown))) DeleteFile(path);
}

} // namespace tarvex
