#include "platform/sqlite/row_walk.h"

#include "core/failure.h"

#include <QSqlError>

#include <limits>
#include <utility>

namespace tarvex::platform
{

RowWalk::RowWalk(const SqliteConnection& connection, std::vector<Condition> conditions)
    : conditions_(std::move(conditions)), select_(connection.Prepare(SelectKeysSql(conditions_)))
{
    First();
}

void RowWalk::First()
{
    Fetch(std::numeric_limits<qlonglong>::min());
}

void RowWalk::Next()
{
    const qlonglong number = Current().number;
    if (++position_ == rows_.size()) Fetch(number);
}

bool RowWalk::AtEnd() const
{
    RequireUsable();
    return position_ == rows_.size();
}

RowWalk::Row& RowWalk::Current()
{
    if (AtEnd()) throw RunTimeFailure("No current record");
    return rows_[position_];
}

void RowWalk::RequireUsable() const
{
    if (broken_) throw RunTimeFailure("The rows can no longer be read");
}

void RowWalk::Fetch(qlonglong after)
{
    rows_.clear();
    position_ = 0;
    broken_ = true;
    int bound = 0;
    for (const Condition& condition : conditions_)
        select_.bindValue(bound++, ToSql(Folded(condition.text)));
    select_.bindValue(bound, after);
    Run(select_);
    while (select_.next())
        rows_.push_back({select_.value(0).toLongLong(), FromSql(select_.value(1))});
    broken_ = select_.lastError().isValid();
    select_.finish();
    RequireUsable();
}

} // namespace tarvex::platform
