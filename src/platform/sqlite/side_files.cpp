#include "platform/sqlite/side_files.h"

#include "core/path_text.h"
#include "platform/sqlite/file_status.h"
#include "platform/sqlite/sqlite_connection.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::platform
{

namespace
{

namespace fs = std::filesystem;

// Offsets into a database's first page, and what is there.
constexpr std::size_t kPageSize = 16;
constexpr std::size_t kFormat = 18;
constexpr char kKeptWithALog = 2;
constexpr std::size_t kChangeCounter = 24;
constexpr std::size_t kSchemaCookie = 40;
constexpr std::size_t kDatabaseHeader = 100;
constexpr std::size_t kPageHeader = 8; // at the start of every other page
constexpr std::size_t kCellCount = 3;  // in it

// Offsets into a journal's header, and what is there.
constexpr std::string_view kJournalMark("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);
constexpr std::size_t kPagesBefore = 16;
constexpr std::size_t kSectorSize = 20;
constexpr std::size_t kJournalPageSize = 24;
constexpr std::size_t kJournalHeader = 28;

constexpr std::uint32_t kLargestPage = 65536;

std::uint32_t Number(std::string_view bytes, std::size_t offset)
{
    std::uint32_t number = 0;
    for (const char byte : bytes.substr(offset, 4))
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

/// The database as it is on the disk, read through SQLite's own opening.
class DatabaseFile
{
public:
    explicit DatabaseFile(sqlite3_file* file) : file_(file)
    {
        file_->pMethods->xFileSize(file_, &size_);
        header_ = Read(0, kDatabaseHeader);
        const std::uint32_t size = Number(header_, kPageSize) >> 16;
        pageSize_ = size == 1 ? kLargestPage : size;
    }

    bool IsEmpty() const { return size_ == 0; }
    bool IsKeptWithALog() const { return header_[kFormat] == kKeptWithALog; }
    std::uint32_t PageSize() const { return pageSize_; }
    std::uint32_t ChangeCounter() const { return Number(header_, kChangeCounter); }
    std::string FirstPage() const { return Read(0, pageSize_); }

    /// True when no page after the first has anything in it.
    bool HoldsNoRow() const
    {
        for (sqlite3_int64 page = pageSize_; page < size_; page += pageSize_)
            if (Number(Read(page, kPageHeader), kCellCount) >> 16 != 0) return false;
        return true;
    }

private:
    std::string Read(sqlite3_int64 offset, std::size_t size) const
    {
        std::string bytes(size, '\0');
        file_->pMethods->xRead(file_, bytes.data(), static_cast<int>(size), offset);
        return bytes;
    }

    sqlite3_file* file_;
    sqlite3_int64 size_ = 0;
    std::string header_;
    std::uint32_t pageSize_ = 0;
};

/// The first page as it was before the write that was under way, or an empty text when the journal
/// does not begin with it.
std::string FirstPageBefore(std::ifstream& journal, std::string_view header)
{
    const std::uint32_t pageSize = Number(header, kJournalPageSize);
    if (pageSize < kDatabaseHeader || pageSize > kLargestPage) return {};
    std::string bytes(4 + pageSize, '\0');
    journal.clear();
    for (std::streamoff place = Number(header, kSectorSize);; place += 4 + pageSize + 4) {
        journal.seekg(place);
        if (!journal.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) return {};
        if (Number(bytes, 0) == 1) return bytes.substr(4);
    }
}

/// Every write counts the change counter on by one, in the first page, which it writes first of
/// all. So the file is the one before the write, or one in which the write has begun.
bool IsAStepFrom(const std::string& before, const std::string& now)
{
    if (before == now) return true;
    if (Number(now, kChangeCounter) != Number(before, kChangeCounter) + 1) return false;
    return Number(now, kSchemaCookie) > Number(before, kSchemaCookie) ||
           before.substr(kDatabaseHeader) == now.substr(kDatabaseHeader);
}

bool JournalBelongs(const DatabaseFile& database, const fs::path& journalName)
{
    if (database.IsEmpty()) return true; // there is nothing to ruin
    std::ifstream journal(journalName, std::ios::binary);
    std::string header(kJournalHeader, '\0');
    if (!journal.read(header.data(), static_cast<std::streamsize>(header.size()))) return true;
    if (!header.starts_with(kJournalMark)) return true; // SQLite takes no notice of it
    if (Number(header, kPagesBefore) == 0) {
        return database.ChangeCounter() <= 1 && database.HoldsNoRow();
    }
    const std::string before = FirstPageBefore(journal, header);
    return before.size() == database.PageSize() && IsAStepFrom(before, database.FirstPage());
}

/// When the status of the file last changed. Unlike the time of the last write it cannot be set
/// back, as a backup that is copied back does.
std::int64_t LastChange(const fs::path& file)
{
    return StatusOf(file).value_or(FileStatus{}).changed;
}

/// What a log holds is newer than the file, unless the file was put there later.
bool LogBelongs(const DatabaseFile& database, const fs::path& databaseName, const fs::path& logName)
{
    if (database.IsEmpty()) return true; // SQLite removes it
    return database.IsKeptWithALog() && LastChange(databaseName) <= LastChange(logName);
}

/// Keeps every other program out as long as it lives.
class FileLock
{
public:
    explicit FileLock(sqlite3_file* file)
        : file_(file),
          held_(file->pMethods->xLock(file, SQLITE_LOCK_SHARED) == SQLITE_OK &&
                file->pMethods->xLock(file, SQLITE_LOCK_EXCLUSIVE) == SQLITE_OK)
    {
    }
    ~FileLock() { file_->pMethods->xUnlock(file_, SQLITE_LOCK_NONE); }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    bool IsHeld() const { return held_; }

private:
    sqlite3_file* file_;
    bool held_;
};

bool Exists(const fs::path& name)
{
    std::error_code error;
    return fs::exists(name, error);
}

void Remove(const fs::path& name)
{
    std::error_code error;
    fs::remove(name, error);
    if (error) throw RunTimeFailure("Path/File access error");
}

} // namespace

void RemoveForeignSideFiles(const SqliteConnection& connection)
{
    const fs::path name = connection.FileName();
    const char* const spelled = sqlite3_db_filename(connection.Handle(), "main");
    const fs::path journal = path_text::FromLibrary(sqlite3_filename_journal(spelled));
    const fs::path log = path_text::FromLibrary(sqlite3_filename_wal(spelled));
    if (!Exists(journal) && !Exists(log)) return;

    const FileLock lock(connection.File());
    if (!lock.IsHeld()) return; // the program that is at work there knows what belongs to it
    const DatabaseFile database(connection.File());
    if (Exists(journal) && !JournalBelongs(database, journal)) Remove(journal);
    if (Exists(log) && !LogBelongs(database, name, log)) {
        Remove(log);
        Remove(fs::path(name).concat("-shm"));
    }
}

} // namespace tarvex::platform
