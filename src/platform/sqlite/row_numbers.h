#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <optional>
#include <vector>

namespace tarvex::platform
{

class SqliteConnection;

/// The numbers of all rows of the survey table, in ascending order. As a rule they follow each
/// other without a gap, and then nothing is kept of a row, however many there are.
class RowNumbers
{
public:
    /// Of no row.
    RowNumbers() = default;

    /// Those in the database. Fails when it cannot be read or is damaged.
    explicit RowNumbers(const SqliteConnection& connection);

    /// How many rows there are.
    std::size_t Count() const { return listed_.empty() ? run_ : listed_.size(); }

    /// The number of the row at that place, from 0; there must be one.
    sqlite3_int64 At(std::size_t place) const
    {
        return listed_.empty() ? first_ + static_cast<sqlite3_int64>(place) : listed_[place];
    }

    /// The place of the row of that number, or none.
    std::optional<std::size_t> PlaceOf(sqlite3_int64 number) const;

    /// True when `later` begins with all of these.
    bool GoOnIn(const RowNumbers& later) const;

private:
    void List(const SqliteConnection& connection);

    sqlite3_int64 first_ = 0;
    std::size_t run_ = 0;               // rows without a gap
    std::vector<sqlite3_int64> listed_; // all, where there are gaps
};

} // namespace tarvex::platform
