#include "platform/sqlite/raw_database.h"

#include <gtest/gtest.h>

namespace tarvex::tests
{

namespace
{

QString TextAt(sqlite3_stmt* row, int column)
{
    const void* text = sqlite3_column_text16(row, column);
    if (text == nullptr) return QStringLiteral("Null");
    const int bytes = sqlite3_column_bytes16(row, column);
    return QString(static_cast<const QChar*>(text), bytes / 2);
}

} // namespace

RawDatabase::RawDatabase(const std::filesystem::path& file)
{
    EXPECT_EQ(sqlite3_open(file.c_str(), &handle_), SQLITE_OK) << sqlite3_errmsg(handle_);
    sqlite3_busy_timeout(handle_, 1000);
}

RawDatabase::~RawDatabase()
{
    EXPECT_EQ(sqlite3_close(handle_), SQLITE_OK);
}

QStringList RawDatabase::Run(const QString& statement)
{
    const QByteArray sql = statement.toUtf8();
    sqlite3_stmt* prepared = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(handle_, sql.constData(), -1, &prepared, nullptr), SQLITE_OK)
        << sqlite3_errmsg(handle_);
    QStringList rows;
    int result = sqlite3_step(prepared);
    for (; result == SQLITE_ROW; result = sqlite3_step(prepared)) {
        QStringList values;
        for (int column = 0; column < sqlite3_column_count(prepared); ++column)
            values += TextAt(prepared, column);
        rows += values.join("|");
    }
    EXPECT_EQ(result, SQLITE_DONE) << sqlite3_errmsg(handle_);
    sqlite3_finalize(prepared);
    return rows;
}

} // namespace tarvex::tests
