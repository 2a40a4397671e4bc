#pragma once

#include "database/value.h"

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

namespace tarvex::platform
{

class SqliteConnection;

/// A copy of one stored value in its very form, which Value cannot always hold.
struct FreeStoredValue {
    void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
};
using StoredValue = std::unique_ptr<sqlite3_value, FreeStoredValue>;

/// A prepared statement, to be run any number of times. Places to bind count from 1, columns from
/// 0. Every operation raises RunTimeFailure when it cannot be done, and DatabaseLocked when another
/// program has held the file for too long.
class Statement
{
public:
    /// Fails when `sql` is no statement that this database can run.
    Statement(const SqliteConnection& connection, const std::string& sql);

    /// Binds a whole number.
    Statement& Bind(int place, sqlite3_int64 number);

    /// Text goes as Unicode, a whole number as an integer.
    Statement& Bind(int place, const Value& value);

    /// Binds the value in the form in which it was stored.
    Statement& Bind(int place, const StoredValue& value);

    /// To the next row; false, and at the beginning again, when there is none. While a statement
    /// is on a row, other programs cannot write to the file.
    bool Step();

    /// Runs it to its end.
    void Run();

    /// Lets go of the rows.
    void Reset();

    /// A whole number of the current row; 0 for Null.
    sqlite3_int64 Number(int column) const;

    /// What the code page does not hold becomes "?".
    Value At(int column) const;

    /// The text in UTF-8, as long as the row is not left; empty for Null.
    std::string_view Text(int column) const;

    /// A copy of the value, which outlives the row.
    StoredValue Stored(int column) const;

private:
    void Require(int result) const;

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    const SqliteConnection* connection_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

} // namespace tarvex::platform
