#include "platform/sqlite/survey_sql.h"

#include "core/code_page.h"

#include <QStringList>

#include <cmath>

namespace tarvex::platform
{

namespace
{

/// Rows that one statement of a walk gives at most.
constexpr int kKeysAtOnce = 256;
constexpr double kLargestWholeNumber = 9007199254740992.0; // beyond it a double has gaps

QString FromUtf8(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// In brackets: a name that is missing from the table is then an error and never a text.
QString Bracketed(std::string_view field)
{
    return "[" + FromUtf8(field) + "]";
}

QString Table()
{
    return FromUtf8(kSurveyTable);
}

QString AllFields()
{
    QStringList fields;
    for (const auto field : kSurveyFields)
        fields += Bracketed(field);
    return fields.join(", ");
}

/// The field with the letters a to z, and no others, as capitals. Plain replacements keep a text at
/// its full length, whatever bytes it holds, and need nothing that SQLite has not got built in.
QString FoldedSql(std::string_view field)
{
    QString folded = Bracketed(field);
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        const QChar small = QLatin1Char(letter);
        folded = "replace(" + folded + ",'" + small + "','" + small.toUpper() + "')";
    }
    return folded;
}

} // namespace

QString CreateTableSql()
{
    QStringList columns;
    for (const auto field : kSurveyFields) {
        columns += Bracketed(field) + (field == kReadoutField ? "" : " TEXT");
    }
    return "CREATE TABLE IF NOT EXISTS " + Table() + " (" + columns.join(", ") + ")";
}

QString CreateIndexSql()
{
    return "CREATE INDEX IF NOT EXISTS tar_vex_tube ON " + Table() + " (" + FoldedSql("cliente") +
           ", " + FoldedSql("cantiere") + ", " + FoldedSql("tubo") + ")";
}

QString SelectRowSql()
{
    return "SELECT " + AllFields() + " FROM " + Table() + " WHERE rowid = ?";
}

QString SelectNumbersSql()
{
    return "SELECT rowid FROM " + Table() + " ORDER BY rowid";
}

QString SelectRangeSql()
{
    return "SELECT rowid, " + AllFields() + " FROM " + Table() +
           " WHERE rowid BETWEEN ? AND ? ORDER BY rowid";
}

QString SelectKeysSql(const std::vector<Condition>& conditions)
{
    QString where;
    for (const Condition& condition : conditions) {
        where += FoldedSql(kSurveyFields.at(FieldIndex(condition.field))) + " = ? AND ";
    }
    return QStringLiteral("SELECT rowid, %1 FROM %2 WHERE %3 rowid > ? ORDER BY rowid LIMIT %4")
        .arg(Bracketed(kMarkField), Table(), where)
        .arg(kKeysAtOnce);
}

QString InsertSql()
{
    const QStringList values(static_cast<qsizetype>(kSurveyFields.size()), QStringLiteral("?"));
    return "INSERT INTO " + Table() + " (" + AllFields() + ") VALUES (" + values.join(", ") + ")";
}

QString UpdateSql(std::span<const std::size_t> fields)
{
    QStringList assignments;
    for (const std::size_t field : fields)
        assignments += Bracketed(kSurveyFields.at(field)) + " = ?";
    return "UPDATE " + Table() + " SET " + assignments.join(", ") + " WHERE rowid = ?";
}

QVariant ToSql(const Value& value)
{
    if (const std::string* text = value.Text()) {
        const std::u8string utf8 = code_page::ToUtf8(*text);
        return QString::fromUtf8(reinterpret_cast<const char*>(utf8.data()),
                                 static_cast<qsizetype>(utf8.size()));
    }
    const double* number = value.Number();
    if (number == nullptr) return {};
    const bool whole = std::trunc(*number) == *number && std::abs(*number) <= kLargestWholeNumber;
    return whole ? QVariant(static_cast<qlonglong>(*number)) : QVariant(*number);
}

Value FromSql(const QVariant& value)
{
    if (value.isNull()) return {};
    switch (value.typeId()) {
    case QMetaType::LongLong:
    case QMetaType::Double:
        return value.toDouble();
    default: {
        const QByteArray utf8 = value.toString().toUtf8();
        return code_page::FromUtf8({reinterpret_cast<const char8_t*>(utf8.constData()),
                                    static_cast<std::size_t>(utf8.size())});
    }
    }
}

} // namespace tarvex::platform
