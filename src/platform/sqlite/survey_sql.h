#pragma once

#include "database/criterion.h"
#include "database/survey_fields.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The statements on the survey table.
namespace tarvex::platform
{

/// The look-up's index: client, site and tube with a to z as capitals, at their full widths.
/// SQLite's own comparison without case would end at a NUL.
inline constexpr std::string_view kTubeIndex = "tar_vex_tube";

/// Makes the table when it is missing.
std::string CreateTableSql();

/// Makes kTubeIndex when it is missing.
std::string CreateIndexSql();

/// The text under which the file keeps kTubeIndex.
std::string TubeIndexSql();

/// All fields of the row with a given number: one value to bind.
std::string SelectRowSql();

/// How many rows there are, and the lowest and the highest of their numbers.
std::string SelectExtentSql();

/// The numbers of all rows, in order.
std::string SelectNumbersSql();

/// Number and fields of the rows from one number to another, in order: the two to bind.
std::string SelectRangeSql();

/// Number, kind of mark (0 Null, 1 empty, 2 any other) and mark of the rows that meet `conditions`
/// and come after a given number, in order: the conditions' texts and that number to bind.
std::string SelectKeysSql(const std::vector<Condition>& conditions);

/// As SelectKeysSql, without the rows whose mark is empty text.
std::string SelectMarkedKeysSql(const std::vector<Condition>& conditions);

/// A new row: all its fields to bind.
std::string InsertSql();

/// Sets `fields`, given as indexes of kSurveyFields, of one row: their values and the row's number
/// to bind.
std::string UpdateSql(std::span<const std::size_t> fields);

/// Further condition of an UpdateSql: the mark is still a given one, which is bound last.
std::string_view WhileMarkIs();

/// Makes the mark of one row an empty text, if it is Null: the row's number to bind.
std::string ClearNullMarkSql();

} // namespace tarvex::platform
