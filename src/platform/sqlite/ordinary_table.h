#pragma once

namespace tarvex::platform
{

class SqliteConnection;

/// Fails unless `tar_vex` is a plain table that runs nothing when it is read or written: no view,
/// no virtual table, and without triggers, computed columns, and indexes on expressions other than
/// the look-up's own. A table that is missing fails too.
void RequireOrdinaryTable(const SqliteConnection& connection);

} // namespace tarvex::platform
