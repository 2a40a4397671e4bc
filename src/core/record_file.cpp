#include "core/record_file.h"

#include "core/failure.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <system_error>

namespace tarvex
{

namespace
{

constexpr auto kReadWrite = std::ios::in | std::ios::out | std::ios::binary;

/// The system would end the path at a NUL, and so reach another file.
void RequireWholeName(const std::filesystem::path& path)
{
    constexpr std::filesystem::path::value_type nul{};
    if (path.empty() || path.native().find(nul) != std::filesystem::path::string_type::npos)
        throw RunTimeFailure("Bad file name");
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
    RequireWholeName(path);
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored))
        throw RunTimeFailure("Path/File access error");

    MakeWhenMissing(path);
    stream_.clear();
    stream_.rdbuf()->pubsetbuf(nullptr, 0); // unbuffered: a put is in the file when it returns
    stream_.open(path, mode);
    if (!stream_.is_open()) throw RunTimeFailure("Path/File access error");
    path_ = path;
    endOfFile_ = false;
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

std::streamoff RecordFile::OffsetOf(double number) const
{
    if (!(number >= 1) || number > std::numeric_limits<int>::max() ||
        std::floor(number) != number) {
        throw RunTimeFailure("Bad record number");
    }
    return (static_cast<std::streamoff>(number) - 1) * static_cast<std::streamoff>(recordLength_);
}

void RecordFile::PutBytes(double number, std::span<const std::byte> record)
{
    RequireOpen();
    const std::streamoff offset = OffsetOf(number);
    std::error_code unknownSize;
    const auto oldSize = std::filesystem::file_size(path_, unknownSize);

    stream_.clear();
    stream_.seekp(offset);
    stream_.write(reinterpret_cast<const char*>(record.data()),
                  static_cast<std::streamsize>(record.size()));
    stream_.flush();
    if (stream_) return;

    std::error_code ignored;
    if (!unknownSize && std::filesystem::file_size(path_, ignored) > oldSize && !ignored) {
        std::filesystem::resize_file(path_, oldSize, ignored);
    }
    throw RunTimeFailure("Disk full");
}

void RecordFile::GetBytes(double number, std::span<std::byte> record)
{
    RequireOpen();
    const std::streamoff offset = OffsetOf(number);

    stream_.clear();
    stream_.seekg(offset);
    stream_.read(reinterpret_cast<char*>(record.data()),
                 static_cast<std::streamsize>(record.size()));
    const std::streamsize found = stream_.gcount();
    endOfFile_ = found < static_cast<std::streamsize>(record.size());
    if (stream_.bad()) throw RunTimeFailure("Device I/O error");
    std::fill(record.begin() + found, record.end(), std::byte{' '});
}

void DeleteFile(const std::filesystem::path& path)
{
    RequireWholeName(path);
    std::error_code error;
    const auto status = std::filesystem::symlink_status(path, error);
    if (error || !std::filesystem::exists(status)) throw RunTimeFailure("File not found");
    if (std::filesystem::is_directory(status)) throw RunTimeFailure("Path/File access error");
    if (!std::filesystem::remove(path, error) || error) throw RunTimeFailure("Permission denied");
}

} // namespace tarvex
