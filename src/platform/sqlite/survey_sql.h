#pragma once

#include "database/criterion.h"
#include "database/survey_fields.h"
#include "database/value.h"

#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <array>
#include <span>
#include <vector>

/// The statements on the survey table, and the way of its values into SQLite and back.
namespace tarvex::platform
{

/// One row, in the order of kSurveyFields.
using SurveyValues = std::array<Value, kSurveyFields.size()>;

/// Makes the table when it is missing.
QString CreateTableSql();

/// Makes the look-up's index when it is missing: client, site and tube with a to z as capitals, at
/// their full widths. SQLite's own comparison without case would end at a NUL.
QString CreateIndexSql();

/// All fields of the row with a given number: one value to bind.
QString SelectRowSql();

/// The numbers of all rows, in order.
QString SelectNumbersSql();

/// Number and fields of the rows from one number to another, in order: the two to bind.
QString SelectRangeSql();

/// Number and mark of the rows that meet `conditions` and come after a given number, in order: the
/// conditions' texts and that number to bind.
QString SelectKeysSql(const std::vector<Condition>& conditions);

/// A new row: all its fields to bind.
QString InsertSql();

/// Sets `fields`, given as indexes of kSurveyFields, of one row: their values and the row's number
/// to bind.
QString UpdateSql(std::span<const std::size_t> fields);

/// Text goes as Unicode, a whole number as an integer.
QVariant ToSql(const Value& value);

/// What the code page does not hold becomes "?".
Value FromSql(const QVariant& value);

} // namespace tarvex::platform
