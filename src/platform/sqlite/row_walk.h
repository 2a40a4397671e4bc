#pragma once

#include "platform/sqlite/sqlite_connection.h"
#include "platform/sqlite/survey_sql.h"

#include <QSqlQuery>

#include <memory>
#include <vector>

namespace tarvex::platform
{

/// A position that moves over the rows that meet some conditions, in the order in which they were
/// added. It reads a few hundred rows at a time and holds no lock in between, so that a box may
/// stand open and other programs may write meanwhile.
class RowWalk
{
public:
    /// What is known of a row without another look at it. Nearly every row of a walk is passed over
    /// for its mark alone.
    struct Row {
        qlonglong number = 0;
        Value mark;
    };

    /// Stands on the first row, or at the end.
    RowWalk(const SqliteConnection& connection, std::vector<Condition> conditions);

    /// To the first row, if there is one.
    void First();

    /// To the next row, or past the last. When that fails, everything here fails from then on: a
    /// walk that does not move would never end.
    void Next();

    bool AtEnd() const;

    /// The row under the position. Fails past the last one.
    Row& Current();

private:
    void Fetch(qlonglong after);
    void RequireUsable() const;

    std::vector<Condition> conditions_;
    QSqlQuery select_;
    std::vector<Row> rows_;
    std::size_t position_ = 0;
    bool broken_ = false;
};

} // namespace tarvex::platform
