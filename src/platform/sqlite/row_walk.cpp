#include "platform/sqlite/row_walk.h"

#include "platform/sqlite/sqlite_connection.h"
#include "platform/sqlite/survey_sql.h"

#include <limits>

namespace tarvex::platform
{

namespace
{

constexpr std::chrono::milliseconds kTrusted(1); // asking at each row would cost more than the walk

RowWalk::Mark MarkOf(sqlite3_int64 kind)
{
    if (kind == 0) return RowWalk::Mark::Null;
    return kind == 1 ? RowWalk::Mark::Empty : RowWalk::Mark::Set;
}

} // namespace

RowWalk::RowWalk(const SqliteConnection& connection, const std::vector<Condition>& conditions)
    : connection_(connection),
      conditions_(conditions),
      select_(connection, SelectKeysSql(conditions))
{
    BindConditions();
}

void RowWalk::PassOverEmptyMarks()
{
    passesOver_ = true;
    select_ = Statement(connection_, SelectMarkedKeysSql(conditions_));
    BindConditions();
}

void RowWalk::BindConditions()
{
    places_ = 0;
    for (const Condition& condition : conditions_)
        select_.Bind(++places_, Value(Folded(condition.text)));
}

void RowWalk::First()
{
    Fetch(std::numeric_limits<sqlite3_int64>::min());
}

void RowWalk::Next()
{
    const sqlite3_int64 number = Number();
    given_.reset();
    ++position_;
    while (passesOver_ && position_ < rows_.size() && rows_[position_].mark == Mark::Empty)
        ++position_;
    if (position_ == rows_.size() || IsStale()) Fetch(number);
}

bool RowWalk::AtEnd() const
{
    RequireUsable();
    return position_ == rows_.size();
}

const RowWalk::Row& RowWalk::Current() const
{
    if (AtEnd()) throw RunTimeFailure("No current record");
    return rows_[position_];
}

Value RowWalk::MarkValue() const
{
    switch (KindOfMark()) {
    case Mark::Null:
        return {};
    case Mark::Empty:
        return "";
    default:
        return given_.value_or(lastMark_);
    }
}

void RowWalk::BindMark(Statement& statement, int place) const
{
    if (KindOfMark() == Mark::Set && !given_) {
        statement.Bind(place, lastStored_);
    } else {
        statement.Bind(place, MarkValue());
    }
}

void RowWalk::SetMark(const Value& mark)
{
    Current();
    const bool empty = mark == Value("");
    rows_[position_].mark = mark.IsNull() ? Mark::Null : empty ? Mark::Empty : Mark::Set;
    given_ = mark;
}

void RowWalk::RequireUsable() const
{
    if (broken_) throw RunTimeFailure("The rows can no longer be read");
}

bool RowWalk::IsStale()
{
    const auto now = Clock::now();
    if (rows_[position_].mark != Mark::Set && now - looked_ < kTrusted) return false;
    looked_ = now;
    return FileVersion(connection_) != version_;
}

/// Up to the first row with a mark.
void RowWalk::Fetch(sqlite3_int64 after)
{
    rows_.clear();
    given_.reset();
    position_ = 0;
    broken_ = true;
    connection_.RequireInPlace();
    looked_ = Clock::now();
    select_.Bind(places_ + 1, after);
    while (select_.Step()) {
        if (rows_.empty()) version_ = FileVersion(connection_);
        const Row row{select_.Number(0), MarkOf(select_.Number(1))};
        if (row.number <= after) throw RunTimeFailure("The database is damaged");
        after = row.number;
        rows_.push_back(row);
        if (row.mark != Mark::Set) continue;
        lastMark_ = select_.At(2);
        lastStored_ = select_.Stored(2);
        break;
    }
    select_.Reset();
    broken_ = false;
}

} // namespace tarvex::platform
