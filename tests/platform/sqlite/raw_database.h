#pragma once

#include <QString>
#include <QStringList>
#include <sqlite3.h>

#include <filesystem>

namespace tarvex::tests
{

/// Another program at work on the same file: a connection of its own, without the engine.
class RawDatabase
{
public:
    explicit RawDatabase(const std::filesystem::path& file);
    ~RawDatabase();
    RawDatabase(const RawDatabase&) = delete;
    RawDatabase& operator=(const RawDatabase&) = delete;

    /// Runs a statement and gives its rows, the values of each separated by "|"; Null is "Null".
    /// The test fails when the statement does.
    QStringList Run(const QString& statement);

private:
    sqlite3* handle_ = nullptr;
};

} // namespace tarvex::tests
