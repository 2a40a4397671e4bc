#include "platform/sqlite/sqlite_engine.h"

#include "core/failure.h"
#include "platform/sqlite/ordinary_table.h"
#include "platform/sqlite/sqlite_record_set.h"
#include "platform/sqlite/survey_sql.h"

#include <fcntl.h>
#include <unistd.h>

namespace tarvex::platform
{

namespace
{

/// In one transaction, so that a file in which a step fails stays as it is. Asking for the right to
/// write first leaves out a file that is locked or may not be written.
void MakeTable(const SqliteConnection& connection)
{
    Transaction transaction(connection);
    connection.Execute(CreateTableSql());
    RequireOrdinaryTable(connection);
    RowReader reader(connection); // fails when the table lacks a field
    connection.Execute(CreateIndexSql());
    transaction.Commit();
}

/// SQLite finds out only when it writes, and that would be after the header of a row has gone.
void RequireWritableFolder(const SqliteConnection& connection)
{
    const std::filesystem::path file = sqlite3_db_filename(connection.Handle(), "main");
    if (::faccessat(AT_FDCWD, file.parent_path().c_str(), W_OK | X_OK, AT_EACCESS) != 0) {
        throw RunTimeFailure("Path/File access error");
    }
}

std::shared_ptr<SqliteConnection> Connect(const std::filesystem::path& file)
{
    auto connection = std::make_shared<SqliteConnection>(file);
    RequireWritableFolder(*connection);
    MakeTable(*connection);
    return connection;
}

} // namespace

std::unique_ptr<RecordSet> SqliteEngine::OpenTable(const std::filesystem::path& file)
{
    return std::make_unique<SqliteRecordSet>(file, Connect);
}

} // namespace tarvex::platform
