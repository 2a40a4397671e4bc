#pragma once

#include "database/criterion.h"
#include "platform/sqlite/file_version.h"
#include "platform/sqlite/statement.h"

#include <chrono>
#include <optional>
#include <vector>

namespace tarvex::platform
{

/// A position that moves over the rows that meet some conditions, in the order in which they were
/// added. The mark of a row is the one that it has when it becomes the current row: rows are read
/// ahead up to the next one with a mark, and again when the file has changed, which is looked at
/// before each row with a mark, and every millisecond before the others. No lock is held in
/// between.
class RowWalk
{
public:
    enum class Mark { Null, Empty, Set };

    /// Has no current row until First.
    RowWalk(const SqliteConnection& connection, const std::vector<Condition>& conditions);

    /// To the first row, if there is one.
    void First();

    /// From now on Next passes over the rows whose mark is empty text.
    void PassOverEmptyMarks();

    /// To the next row, or past the last. When that fails, everything here fails from then on: a
    /// walk that does not move would never end.
    void Next();

    /// True past the last row, and always when no row meets the conditions.
    bool AtEnd() const;

    /// The number of the current row. It and all below fail past the last row.
    sqlite3_int64 Number() const { return Current().number; }

    /// Whether the current row has a mark.
    Mark KindOfMark() const { return Current().mark; }

    /// The mark of the current row.
    Value MarkValue() const;

    /// Binds the mark of the current row to a statement, as it is in the file.
    void BindMark(Statement& statement, int place) const;

    /// The current row has been given another mark.
    void SetMark(const Value& mark);

private:
    struct Row {
        sqlite3_int64 number = 0;
        Mark mark = Mark::Null;
    };

    using Clock = std::chrono::steady_clock;

    void BindConditions();
    void Fetch(sqlite3_int64 after);
    bool IsStale();
    const Row& Current() const;
    void RequireUsable() const;

    const SqliteConnection& connection_;
    const std::vector<Condition> conditions_;
    Statement select_;
    bool passesOver_ = false;
    int places_ = 0; // to bind
    std::vector<Row> rows_;
    FileVersion version_; // of what rows_ were read from
    Clock::time_point looked_;
    std::size_t position_ = 0;
    Value lastMark_; // of the last of rows_, if it is set
    StoredValue lastStored_;
    std::optional<Value> given_; // by SetMark
    bool broken_ = false;
};

} // namespace tarvex::platform
