#include "platform/sqlite/survey_sql.h"

namespace tarvex::platform
{

namespace
{

/// Rows that one statement of a walk gives at most.
constexpr int kKeysAtOnce = 4096;

/// In brackets: a name that is missing from the table is then an error and never a text.
std::string Bracketed(std::string_view field)
{
    return "[" + std::string(field) + "]";
}

std::string Table()
{
    return std::string(kSurveyTable);
}

std::string AllFields()
{
    std::string fields;
    for (const auto field : kSurveyFields)
        fields += (fields.empty() ? "" : ", ") + Bracketed(field);
    return fields;
}

/// The field with the letters a to z, and no others, as capitals. Plain replacements keep a text at
/// its full length, whatever bytes it holds, and need nothing that SQLite has not got built in.
std::string FoldedSql(std::string_view field)
{
    std::string folded = Bracketed(field);
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        const auto capital = static_cast<char>(letter - 'a' + 'A');
        folded.insert(0, "replace(")
            .append({',', '\'', letter, '\'', ',', '\'', capital, '\'', ')'});
    }
    return folded;
}

std::string IndexOnTable()
{
    return std::string(kTubeIndex) + " ON " + Table() + " (" + FoldedSql("cliente") + ", " +
           FoldedSql("cantiere") + ", " + FoldedSql("tubo") + ")";
}

/// `where` ends in AND, or is empty.
std::string KeysSql(const std::vector<Condition>& conditions, std::string where)
{
    for (const Condition& condition : conditions)
        where += FoldedSql(kSurveyFields.at(FieldIndex(condition.field))) + " = ? AND ";
    const std::string mark = Bracketed(kMarkField);
    return "SELECT rowid, CASE WHEN " + mark + " IS NULL THEN 0 WHEN " + mark +
           " = '' THEN 1 ELSE 2 END, " + mark + " FROM " + Table() + " WHERE " + where +
           "rowid > ? ORDER BY rowid LIMIT " + std::to_string(kKeysAtOnce);
}

} // namespace

std::string CreateTableSql()
{
    std::string columns;
    for (const auto field : kSurveyFields) {
        columns += (columns.empty() ? "" : ", ") + Bracketed(field);
        if (field != kReadoutField) columns += " TEXT";
    }
    return "CREATE TABLE IF NOT EXISTS " + Table() + " (" + columns + ")";
}

std::string CreateIndexSql()
{
    return "CREATE INDEX IF NOT EXISTS " + IndexOnTable();
}

std::string TubeIndexSql()
{
    return "CREATE INDEX " + IndexOnTable();
}

std::string SelectRowSql()
{
    return "SELECT " + AllFields() + " FROM " + Table() + " WHERE rowid = ?";
}

std::string SelectExtentSql()
{
    const std::string from = " FROM " + Table() + ")";
    return "SELECT (SELECT count(*)" + from + ", (SELECT min(rowid)" + from +
           ", (SELECT max(rowid)" + from;
}

std::string SelectNumbersSql()
{
    return "SELECT rowid FROM " + Table() + " ORDER BY rowid";
}

std::string SelectRangeSql()
{
    return "SELECT rowid, " + AllFields() + " FROM " + Table() +
           " WHERE rowid BETWEEN ? AND ? ORDER BY rowid";
}

std::string SelectKeysSql(const std::vector<Condition>& conditions)
{
    return KeysSql(conditions, {});
}

std::string SelectMarkedKeysSql(const std::vector<Condition>& conditions)
{
    return KeysSql(conditions, Bracketed(kMarkField) + " IS NOT '' AND ");
}
std::string InsertSql()
{
    std::string values;
    for (std::size_t field = 0; field < kSurveyFields.size(); ++field)
        values += field == 0 ? "?" : ", ?";
    return "INSERT INTO " + Table() + " (" + AllFields() + ") VALUES (" + values + ")";
}

std::string UpdateSql(std::span<const std::size_t> fields)
{
    std::string assignments;
    for (const std::size_t field : fields)
        assignments +=
            (assignments.empty() ? "" : ", ") + Bracketed(kSurveyFields.at(field)) + " = ?";
    return "UPDATE " + Table() + " SET " + assignments + " WHERE rowid = ?";
}

std::string_view WhileMarkIs()
{
    return " AND [b] IS ?";
}

std::string ClearNullMarkSql()
{
    return "UPDATE " + Table() + " SET [b] = '' WHERE rowid = ? AND [b] IS NULL";
}

} // namespace tarvex::platform
