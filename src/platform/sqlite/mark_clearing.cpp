#include "platform/sqlite/mark_clearing.h"

#include "platform/sqlite/sqlite_connection.h"
#include "platform/sqlite/statement.h"
#include "platform/sqlite/survey_sql.h"

namespace tarvex::platform
{

namespace
{
constexpr std::size_t kRowsOfACommit = 50'000; // others wait for it: well below a second
} // namespace

void MarkClearing::Add(sqlite3_int64 row)
{
    rows_.push_back(row);
    if (rows_.size() == kRowsOfACommit) Finish();
}

void MarkClearing::Finish()
{
    if (rows_.empty()) return;
    try {
        Write();
    } catch (const RunTimeFailure&) {
        // The walk goes on, as it does after a single update that fails.
    }
    rows_.clear();
}

void MarkClearing::Write()
{
    connection_.RequireInPlace();
    Transaction transaction(connection_);
    Statement clear(connection_, ClearNullMarkSql());
    for (const sqlite3_int64 row : rows_)
        clear.Bind(1, row).Run();
    transaction.Commit();
}

} // namespace tarvex::platform
