#include "platform/sqlite/row_reader.h"

#include "platform/sqlite/survey_sql.h"

namespace tarvex::platform
{

RowReader::RowReader(const SqliteConnection& connection) : select_(connection, SelectRowSql()) {}

std::optional<SurveyValues> RowReader::Read(sqlite3_int64 number)
{
    if (!select_.Bind(1, number).Step()) return std::nullopt;
    SurveyValues row;
    for (std::size_t field = 0; field < row.size(); ++field)
        row[field] = select_.At(static_cast<int>(field));
    select_.Reset();
    return row;
}

} // namespace tarvex::platform
