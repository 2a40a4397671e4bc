#pragma once

namespace tarvex::platform
{

class SqliteConnection;

/// A program that is killed while it writes leaves a journal or a log beside the database, from
/// which SQLite puts the file right when it is next read. When another file, say a backup, has been
/// put in the database's place meanwhile, this would ruin it: SQLite does not see that the two do
/// not belong together. This removes what is beside the file and does not belong to it. To be
/// called before the connection's first statement. What another program has open stays.
void RemoveForeignSideFiles(const SqliteConnection& connection);

} // namespace tarvex::platform
