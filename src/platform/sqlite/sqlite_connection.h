#pragma once

#include "core/failure.h"

#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

namespace tarvex::platform
{

/// Another program has held the file for longer than an operation waits.
class DatabaseLocked : public RunTimeFailure
{
public:
    using RunTimeFailure::RunTimeFailure;
};

/// One connection to an SQLite file. A lock of another program is waited for up to a second, and no
/// step of a statement takes longer than ten; both end in a failure. Between transactions there is
/// one file, whole and current. All statements are gone before the connection is.
class SqliteConnection
{
public:
    enum class When { Missing, Exists };

    /// Opens `file` for reading and writing. A missing one is made for When::Missing. Fails,
    /// without touching it, when it is anything else than an SQLite database or an empty file, and
    /// when it may not be written. What a killed program has left beside the file is taken in if it
    /// belongs to it, and removed if not.
    explicit SqliteConnection(const std::filesystem::path& file, When make = When::Missing);
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;
    ~SqliteConnection() = default;

    sqlite3* Handle() const { return handle_.get(); }

    /// The file as SQLite itself has it open: a second opening by other means would, when closed,
    /// take away the locks that this program has on it.
    sqlite3_file* File() const;

    /// The path of that file, without links.
    std::filesystem::path FileName() const;

    /// Runs a statement once; what it gives is dropped.
    void Execute(const std::string& sql) const;

    /// True between BEGIN and its end.
    bool InTransaction() const;

    /// True when the name no longer leads to the file that was opened.
    bool HasMoved() const;

    /// Fails when HasMoved.
    void RequireInPlace() const;

    /// Raises the failure of `result`.
    [[noreturn]] void Fail(int result) const;

    /// A step begins: the time allowed for it starts again.
    void StartPatience() const { stepChecks_ = 0; }

private:
    static int OnBusy(void* self, int calls);
    static int OnProgress(void* self);
    void Protect() const;
    void RequireSqlite() const;
    void KeepJournal();

    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };
    using Clock = std::chrono::steady_clock;

    std::unique_ptr<sqlite3, Close> handle_;
    bool waits_ = true;
    Clock::time_point busySince_;
    mutable int stepChecks_ = 0;
    Clock::time_point stepSince_;
};

/// A transaction that is the only one to write, from its beginning on. Without Commit nothing of it
/// remains.
class Transaction
{
public:
    /// Begins one, or takes over the one that is open.
    explicit Transaction(const SqliteConnection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// All of it is on the disk when this returns.
    void Commit();

private:
    const SqliteConnection& connection_;
};

} // namespace tarvex::platform
