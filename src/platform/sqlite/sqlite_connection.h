#pragma once

#include <QSqlQuery>
#include <QString>

#include <filesystem>

namespace tarvex::platform
{

/// One connection to an SQLite file. Every operation raises RunTimeFailure when it cannot be done;
/// none waits for a lock, since the window has to stay alive. All queries made here are gone before
/// the connection is.
class SqliteConnection
{
public:
    /// Opens `file`, made when missing. Fails, without touching it, when it is anything else than
    /// an SQLite database or an empty file.
    explicit SqliteConnection(const std::filesystem::path& file);
    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    /// A statement to be run any number of times.
    QSqlQuery Prepare(const QString& statement) const;

    /// Runs a statement once; what it gives is dropped.
    void Execute(const QString& statement) const;

private:
    QString name_;
};

/// Runs a prepared statement with what has been bound to it.
void Run(QSqlQuery& query);

} // namespace tarvex::platform
