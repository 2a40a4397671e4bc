#include "platform/sqlite/row_numbers.h"

#include "platform/sqlite/sqlite_connection.h"
#include "platform/sqlite/statement.h"
#include "platform/sqlite/survey_sql.h"

#include <algorithm>
#include <cstdint>

namespace tarvex::platform
{

RowNumbers::RowNumbers(const SqliteConnection& connection)
{
    Statement extent(connection, SelectExtentSql());
    extent.Step();
    const auto count = static_cast<std::uint64_t>(extent.Number(0));
    if (count == 0) return;
    first_ = extent.Number(1);
    const auto first = static_cast<std::uint64_t>(first_); // the two may be as far apart as can be
    if (static_cast<std::uint64_t>(extent.Number(2)) - first == count - 1) {
        run_ = count;
    } else {
        List(connection);
    }
}

void RowNumbers::List(const SqliteConnection& connection)
{
    Statement select(connection, SelectNumbersSql());
    while (select.Step()) {
        const sqlite3_int64 number = select.Number(0);
        if (!listed_.empty() && number <= listed_.back())
            throw RunTimeFailure("The database is damaged");
        listed_.push_back(number);
    }
}

std::optional<std::size_t> RowNumbers::PlaceOf(sqlite3_int64 number) const
{
    if (listed_.empty()) {
        const auto place = static_cast<std::uint64_t>(number) - static_cast<std::uint64_t>(first_);
        return place < run_ ? std::optional<std::size_t>(place) : std::nullopt;
    }
    const auto found = std::lower_bound(listed_.begin(), listed_.end(), number);
    if (found == listed_.end() || *found != number) return std::nullopt;
    return static_cast<std::size_t>(found - listed_.begin());
}

bool RowNumbers::GoOnIn(const RowNumbers& later) const
{
    if (later.Count() < Count()) return false;
    if (listed_.empty() && later.listed_.empty()) return Count() == 0 || first_ == later.first_;
    for (std::size_t place = 0; place < Count(); ++place)
        if (At(place) != later.At(place)) return false;
    return true;
}

} // namespace tarvex::platform
