#include "platform/sqlite/file_version.h"

#include "platform/sqlite/sqlite_connection.h"

namespace tarvex::platform
{

namespace
{
constexpr sqlite3_int64 kCounters = 24; // their place in the file
} // namespace

FileVersion::FileVersion(const SqliteConnection& connection)
{
    sqlite3_file* file = connection.File();
    file->pMethods->xRead(file, counters_.data(), static_cast<int>(counters_.size()), kCounters);
    struct stat status {
    };
    if (::stat(sqlite3_db_filename(connection.Handle(), "main"), &status) != 0) {
        throw RunTimeFailure("File not found");
    }
    device_ = status.st_dev;
    file_ = status.st_ino;
    size_ = status.st_size;
    changedSeconds_ = status.st_mtim.tv_sec;
    changedNanoseconds_ = status.st_mtim.tv_nsec;
}

} // namespace tarvex::platform
