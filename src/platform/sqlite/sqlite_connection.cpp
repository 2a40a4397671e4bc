#include "platform/sqlite/sqlite_connection.h"

#include "core/failure.h"

#include <QSqlDatabase>
#include <QSqlError>

#include <array>
#include <fstream>
#include <string_view>
#include <system_error>

namespace tarvex::platform
{

namespace
{

constexpr std::string_view kSqliteMark("SQLite format 3\0", 16);

/// Connections that are open at the moment, of all files.
int& OpenConnections()
{
    static int count = 0;
    return count;
}

/// False as well for a file that may not be written: SQLite would open it to read only, without a
/// word.
bool BeginsAsSqlite(const std::filesystem::path& file)
{
    std::array<char, kSqliteMark.size()> start{};
    std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
    stream.read(start.data(), start.size());
    return stream.good() && std::string_view(start.data(), start.size()) == kSqliteMark;
}

/// A foreign file with a left-over journal of ours beside it would be written to when SQLite opens
/// it, and a pipe would hold up the program: neither gets that far. The look at the file is left
/// out while a connection is open, for closing a file drops the locks that the program has on it.
void RequireSqliteFile(const std::filesystem::path& file)
{
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found) return;
    if (!std::filesystem::is_regular_file(status)) throw RunTimeFailure("Path/File access error");
    if (OpenConnections() > 0) return;
    const bool empty = std::filesystem::is_empty(file, error);
    if (error || (!empty && !BeginsAsSqlite(file))) {
        throw RunTimeFailure("Unrecognized database format");
    }
}

/// Fails for a name that has no way into Unicode and back: it would open another file.
QString UnicodeName(const std::filesystem::path& file)
{
    const std::u8string utf8 = file.u8string();
    const QByteArray bytes(reinterpret_cast<const char*>(utf8.data()),
                           static_cast<qsizetype>(utf8.size()));
    QString name = QString::fromUtf8(bytes);
    if (name.isEmpty() || name.toUtf8() != bytes) throw RunTimeFailure("Bad file name");
    return name;
}

QString NextConnectionName()
{
    static int number = 0;
    return QStringLiteral("tarvex-survey-%1").arg(++number);
}

RunTimeFailure FailureOf(const QSqlError& error)
{
    return RunTimeFailure(error.text().toStdString());
}

} // namespace

SqliteConnection::SqliteConnection(const std::filesystem::path& file) : name_(NextConnectionName())
{
    const QString fileName = UnicodeName(file);
    RequireSqliteFile(file);

    auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name_);
    database.setDatabaseName(fileName);
    database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
    if (!database.open()) {
        const QSqlError error = database.lastError();
        database = QSqlDatabase();
        QSqlDatabase::removeDatabase(name_);
        throw FailureOf(error);
    }
    ++OpenConnections();
}

SqliteConnection::~SqliteConnection()
{
    --OpenConnections();
    QSqlDatabase::database(name_, false).close();
    QSqlDatabase::removeDatabase(name_);
}

QSqlQuery SqliteConnection::Prepare(const QString& statement) const
{
    QSqlQuery query(QSqlDatabase::database(name_, false));
    query.setForwardOnly(true);
    if (!query.prepare(statement)) throw FailureOf(query.lastError());
    return query;
}

void SqliteConnection::Execute(const QString& statement) const
{
    QSqlQuery query = Prepare(statement);
    Run(query);
    query.next(); // a pragma that gives a row takes effect when it has given it
}

void Run(QSqlQuery& query)
{
    if (!query.exec()) throw FailureOf(query.lastError());
}

} // namespace tarvex::platform
