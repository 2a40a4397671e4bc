#include "platform/sqlite/ordinary_table.h"

#include "platform/sqlite/sqlite_connection.h"
#include "platform/sqlite/statement.h"
#include "platform/sqlite/survey_sql.h"

namespace tarvex::platform
{

namespace
{

/// Views and virtual tables have no root page.
constexpr auto kEntries = "SELECT type, rootpage, name, sql FROM sqlite_schema "
                          "WHERE tbl_name = 'tar_vex' COLLATE NOCASE";

/// Columns that are computed, also if only for a new row, and one that would hide the row's number.
constexpr auto kOddColumns = "SELECT 1 FROM pragma_table_xinfo('tar_vex') "
                             "WHERE hidden <> 0 OR dflt_value GLOB '*(*' OR lower(name) = 'rowid'";

/// Indexes over less than all rows, or over an expression.
constexpr auto kOddIndexes =
    "SELECT 1 FROM pragma_index_list('tar_vex') AS i WHERE i.name <> 'tar_vex_tube' AND "
    "(i.partial OR EXISTS (SELECT 1 FROM pragma_index_xinfo(i.name) WHERE cid = -2))";

[[noreturn]] void Refuse()
{
    throw RunTimeFailure("The table is not an ordinary one");
}

/// Those that SQLite makes by itself, for a unique column, have no text.
bool IsOrdinaryIndex(const Statement& entry)
{
    return entry.Text(2) != kTubeIndex || entry.Text(3) == TubeIndexSql();
}

} // namespace

void RequireOrdinaryTable(const SqliteConnection& connection)
{
    bool hasTable = false;
    Statement entries(connection, kEntries);
    while (entries.Step()) {
        const std::string_view type = entries.Text(0);
        const bool ordinary = (type == "table" && entries.Number(1) > 0) ||
                              (type == "index" && IsOrdinaryIndex(entries));
        if (!ordinary) Refuse();
        hasTable = hasTable || type == "table";
    }
    if (!hasTable) Refuse();
    if (Statement(connection, kOddColumns).Step()) Refuse();
    if (Statement(connection, kOddIndexes).Step()) Refuse();
}

} // namespace tarvex::platform
