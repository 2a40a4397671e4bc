#pragma once

#include <sqlite3.h>

#include <vector>

namespace tarvex::platform
{

class SqliteConnection;

/// Null marks that a walk turns into empty text. A commit each would take minutes in a large table,
/// so neighbours share one: as nothing else happens between them, a kill leaves the same as if it
/// had come between two single commits.
class MarkClearing
{
public:
    explicit MarkClearing(const SqliteConnection& connection) : connection_(connection) {}
    ~MarkClearing() { Finish(); }
    MarkClearing(const MarkClearing&) = delete;
    MarkClearing& operator=(const MarkClearing&) = delete;

    /// Notes a row whose mark is Null; written with its neighbours, at the latest by Finish.
    void Add(sqlite3_int64 row);

    /// Writes what is waiting. A mark that is no longer Null stays as it is. Without success the
    /// rows stay as they are.
    void Finish();

private:
    void Write();

    const SqliteConnection& connection_;
    std::vector<sqlite3_int64> rows_;
};

} // namespace tarvex::platform
