#include "platform/sqlite/file_version.h"

#include "platform/sqlite/file_status.h"
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
    const auto status = StatusOf(connection.FileName());
    if (!status) throw RunTimeFailure("File not found");
    device_ = status->device;
    file_ = status->file;
    size_ = status->size;
    written_ = status->written;
}

} // namespace tarvex::platform
