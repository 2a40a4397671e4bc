#include "platform/sqlite/sqlite_connection.h"

#include "core/path_text.h"
#include "platform/sqlite/side_files.h"
#include "platform/sqlite/statement.h"

#include <array>
#include <string_view>
#include <thread>

namespace tarvex::platform
{

namespace
{

using namespace std::chrono_literals;

constexpr auto kLongestWait = 1s;
constexpr auto kBetweenTries = 100us; // another program lets go for no longer between two writes
constexpr auto kLongestStep = 10s;
constexpr int kInstructionsBetweenChecks = 10'000;
constexpr std::string_view kSqliteMark("SQLite format 3\0", 16);

/// A pipe of that name would hold the program up, and a file of one byte is an empty one to SQLite.
void RequireFile(const std::filesystem::path& file)
{
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (file.empty() || (std::filesystem::exists(status) && !is_regular_file(status))) {
        throw RunTimeFailure("Path/File access error");
    }
    if (std::filesystem::file_size(file, error) == 1 && !error) {
        throw RunTimeFailure("Unrecognized database format");
    }
}

} // namespace

SqliteConnection::SqliteConnection(const std::filesystem::path& file, When make)
{
    RequireFile(file);
    const int create = make == When::Missing ? SQLITE_OPEN_CREATE : 0;
    sqlite3* handle = nullptr;
    // The program has one thread.
    const int result =
        sqlite3_open_v2(path_text::ForLibrary(file).c_str(), &handle,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | create, nullptr);
    handle_.reset(handle);
    if (result != SQLITE_OK) Fail(result);
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_handler(handle, OnBusy, this);
    sqlite3_progress_handler(handle, kInstructionsBetweenChecks, OnProgress, this);
    Protect();
    RequireSqlite();
    RemoveForeignSideFiles(*this);
    Execute("PRAGMA synchronous = EXTRA");
    Execute("PRAGMA ignore_check_constraints = ON"); // they are of the file's making
    KeepJournal();
}

/// Nothing that the file's schema holds runs, and nothing can write to the schema's own table.
void SqliteConnection::Protect() const
{
    for (const int off :
         {SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW,
          SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_DQS_DML, SQLITE_DBCONFIG_ENABLE_FKEY}) {
        sqlite3_db_config(Handle(), off, 0, nullptr);
    }
    sqlite3_db_config(Handle(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
}

/// Before SQLite takes a look itself: it would write to a foreign file that has a journal beside
/// it, and it opens to read only, without a word, what may not be written.
void SqliteConnection::RequireSqlite() const
{
    if (sqlite3_db_readonly(Handle(), "main") != 0) throw RunTimeFailure("Path/File access error");
    sqlite3_int64 size = 0;
    std::array<char, kSqliteMark.size()> start{};
    sqlite3_file* file = File();
    file->pMethods->xFileSize(file, &size);
    if (size == 0) return;
    file->pMethods->xRead(file, start.data(), static_cast<int>(start.size()), 0);
    if (std::string_view(start.data(), start.size()) != kSqliteMark) {
        throw RunTimeFailure("Unrecognized database format");
    }
}

/// A log would stay beside the file from one operation to the next. While another program has the
/// file open, SQLite cannot leave that mode: then the log is used too.
void SqliteConnection::KeepJournal()
{
    waits_ = false;
    try {
        Execute("PRAGMA journal_mode = DELETE");
    } catch (const DatabaseLocked&) {
        // Kept by another program, or just being written: every transaction looks again.
    }
    waits_ = true;
}

sqlite3_file* SqliteConnection::File() const
{
    sqlite3_file* file = nullptr;
    sqlite3_file_control(Handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (file == nullptr || file->pMethods == nullptr)
        throw RunTimeFailure("Path/File access error");
    return file;
}

std::filesystem::path SqliteConnection::FileName() const
{
    return path_text::FromLibrary(sqlite3_db_filename(Handle(), "main"));
}

void SqliteConnection::Execute(const std::string& sql) const
{
    Statement(*this, sql).Run();
}

bool SqliteConnection::InTransaction() const
{
    return sqlite3_get_autocommit(Handle()) == 0;
}

bool SqliteConnection::HasMoved() const
{
    int moved = 0;
    sqlite3_file_control(Handle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return moved != 0;
}

void SqliteConnection::RequireInPlace() const
{
    if (HasMoved()) throw RunTimeFailure("The database is another file now");
}

void SqliteConnection::Fail(int result) const
{
    const char* text = handle_ ? sqlite3_errmsg(Handle()) : sqlite3_errstr(result);
    const int kind = result & 0xFF; // without what is more exact
    if (kind == SQLITE_BUSY || kind == SQLITE_LOCKED) throw DatabaseLocked(text);
    throw RunTimeFailure(text);
}

int SqliteConnection::OnBusy(void* self, int calls)
{
    auto& connection = *static_cast<SqliteConnection*>(self);
    if (!connection.waits_) return 0;
    if (calls == 0) connection.busySince_ = Clock::now();
    if (Clock::now() - connection.busySince_ >= kLongestWait) return 0;
    std::this_thread::sleep_for(kBetweenTries);
    return 1;
}

int SqliteConnection::OnProgress(void* self)
{
    auto& connection = *static_cast<SqliteConnection*>(self);
    if (connection.stepChecks_++ == 0) connection.stepSince_ = Clock::now();
    return Clock::now() - connection.stepSince_ > kLongestStep ? 1 : 0;
}

Transaction::Transaction(const SqliteConnection& connection) : connection_(connection)
{
    if (!connection_.InTransaction()) connection_.Execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (!connection_.InTransaction()) return;
    try {
        connection_.Execute("ROLLBACK");
    } catch (const RunTimeFailure&) {
        // Closing the connection drops it.
    }
}

void Transaction::Commit()
{
    connection_.Execute("COMMIT");
}

} // namespace tarvex::platform
