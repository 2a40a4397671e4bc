#include "sqlite/raw_database.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

#include <gtest/gtest.h>

namespace tarvex::tests
{

RawDatabase::RawDatabase(const std::filesystem::path& file)
{
    static int number = 0;
    name_ = QStringLiteral("raw-%1").arg(++number);
    auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name_);
    database.setDatabaseName(QString::fromStdString(file.string()));
    EXPECT_TRUE(database.open()) << database.lastError().text().toStdString();
}

RawDatabase::~RawDatabase()
{
    QSqlDatabase::database(name_, false).close();
    QSqlDatabase::removeDatabase(name_);
}

QStringList RawDatabase::Run(const QString& statement)
{
    QSqlQuery query(QSqlDatabase::database(name_, false));
    EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
    QStringList rows;
    while (query.next()) {
        QStringList values;
        for (int column = 0; column < query.record().count(); ++column) {
            const QVariant value = query.value(column);
            values += value.isNull() ? QStringLiteral("Null") : value.toString();
        }
        rows += values.join("|");
    }
    return rows;
}

} // namespace tarvex::tests
