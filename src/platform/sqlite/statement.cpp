#include "platform/sqlite/statement.h"

#include "core/code_page.h"
#include "platform/sqlite/sqlite_connection.h"

#include <cmath>

namespace tarvex::platform
{

namespace
{
constexpr double kLargestWholeNumber = 9007199254740992.0; // beyond it a double has gaps
} // namespace

Statement::Statement(const SqliteConnection& connection, const std::string& sql)
    : connection_(&connection)
{
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v2(connection.Handle(), sql.data(),
                                          static_cast<int>(sql.size()), &statement, nullptr);
    statement_.reset(statement);
    Require(result);
}

void Statement::Require(int result) const
{
    if (result != SQLITE_OK) connection_->Fail(result);
}

Statement& Statement::Bind(int place, sqlite3_int64 number)
{
    Require(sqlite3_bind_int64(statement_.get(), place, number));
    return *this;
}

Statement& Statement::Bind(int place, const Value& value)
{
    if (const std::string* text = value.Text()) {
        const std::u8string utf8 = code_page::ToUtf8(*text);
        Require(sqlite3_bind_text(statement_.get(), place,
                                  reinterpret_cast<const char*>(utf8.data()),
                                  static_cast<int>(utf8.size()), SQLITE_TRANSIENT));
        return *this;
    }
    const double* number = value.Number();
    if (number == nullptr) {
        Require(sqlite3_bind_null(statement_.get(), place));
        return *this;
    }
    const bool whole = std::trunc(*number) == *number && std::abs(*number) <= kLargestWholeNumber;
    if (whole) return Bind(place, static_cast<sqlite3_int64>(*number));
    Require(sqlite3_bind_double(statement_.get(), place, *number));
    return *this;
}

Statement& Statement::Bind(int place, const StoredValue& value)
{
    Require(sqlite3_bind_value(statement_.get(), place, value.get()));
    return *this;
}

bool Statement::Step()
{
    connection_->StartPatience();
    const int result = sqlite3_step(statement_.get());
    if (result == SQLITE_ROW) return true;
    Reset();
    if (result != SQLITE_DONE) connection_->Fail(result);
    return false;
}

void Statement::Run()
{
    while (Step())
        continue;
}

/// What it gives is the failure of the last step once more.
void Statement::Reset()
{
    (void)sqlite3_reset(statement_.get());
}

sqlite3_int64 Statement::Number(int column) const
{
    return sqlite3_column_int64(statement_.get(), column);
}

Value Statement::At(int column) const
{
    switch (sqlite3_column_type(statement_.get(), column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement_.get(), column);
    default:
        break;
    }
    const std::string_view utf8 = Text(column);
    return code_page::FromUtf8({reinterpret_cast<const char8_t*>(utf8.data()), utf8.size()});
}

std::string_view Statement::Text(int column) const
{
    const auto* text = sqlite3_column_text(statement_.get(), column);
    if (text == nullptr) return {};
    const int size = sqlite3_column_bytes(statement_.get(), column);
    return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(size)};
}

StoredValue Statement::Stored(int column) const
{
    return StoredValue(sqlite3_value_dup(sqlite3_column_value(statement_.get(), column)));
}

} // namespace tarvex::platform
