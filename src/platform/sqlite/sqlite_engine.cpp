#include "platform/sqlite/sqlite_engine.h"

#include "core/failure.h"
#include "platform/sqlite/file_status.h"
#include "platform/sqlite/ordinary_table.h"
#include "platform/sqlite/sqlite_record_set.h"
#include "platform/sqlite/survey_sql.h"

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
    if (!MayMakeFilesIn(connection.FileName().parent_path()))
        throw RunTimeFailure("Path/File access error");
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
