#pragma once

#include "database/survey_fields.h"
#include "platform/sqlite/statement.h"

#include <array>
#include <optional>

namespace tarvex::platform
{

/// One row, in the order of kSurveyFields.
using SurveyValues = std::array<Value, kSurveyFields.size()>;

/// Reads single rows.
class RowReader
{
public:
    /// Fails when the table lacks a field.
    explicit RowReader(const SqliteConnection& connection);

    /// Nothing when there is no row of that number.
    std::optional<SurveyValues> Read(sqlite3_int64 number);

private:
    Statement select_;
};

} // namespace tarvex::platform
