#include "platform/sqlite/sqlite_engine.h"

#include "core/failure.h"
#include "platform/sqlite/sqlite_record_set.h"

namespace tarvex::platform
{

namespace
{

/// In one transaction, so that a file in which a step fails stays as it is. Asking for the right to
/// write first leaves out a file that is locked or may not be written.
void MakeTable(const std::shared_ptr<SqliteConnection>& connection)
{
    connection->Execute("BEGIN IMMEDIATE");
    connection->Execute(CreateTableSql());
    SqliteRecordSet(connection, {}).Close(); // fails when the table lacks a field
    connection->Execute(CreateIndexSql());
    connection->Execute("COMMIT");
}

/// A commit is on the disk when it returns. With a write-ahead log it costs one wait for the disk
/// instead of six, and readers do not stand in its way. Where a file system has no such log, the
/// file keeps its journal.
void KeepLog(const SqliteConnection& connection)
{
    try {
        connection.Execute("PRAGMA journal_mode = WAL");
    } catch (const RunTimeFailure&) {
        // Somebody is reading at this very moment: the journal it is.
    }
}

} // namespace

std::unique_ptr<RecordSet> SqliteEngine::OpenTable(const std::filesystem::path& file)
{
    const auto connection = std::make_shared<SqliteConnection>(file);
    connection->Execute("PRAGMA synchronous = EXTRA");
    MakeTable(connection);
    KeepLog(*connection);
    return std::make_unique<SqliteRecordSet>(connection, std::vector<Condition>{});
}

} // namespace tarvex::platform
