#pragma once

#include "core/event_pump.h"
#include "core/header_store.h"
#include "core/message_boxes.h"
#include "database/survey_database.h"
#include "platform/sqlite/sqlite_engine.h"

#include <sqlite3.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>

namespace tarvex::bench
{

/// The program below the window with a survey table of a given size, in a folder of its own, which
/// is removed at the end. Anything that does not go as planned ends the measurement.
class SurveyWorld
{
public:
    /// Makes the table of `rows` tubes, each with two readings and with `mark` (in SQL) as its
    /// mark.
    SurveyWorld(const std::filesystem::path& parent, int rows, const std::string& mark);
    ~SurveyWorld();
    SurveyWorld(const SurveyWorld&) = delete;
    SurveyWorld& operator=(const SurveyWorld&) = delete;

    /// Fills the thirty records with tubes of the table, spread over it, and readings never filed.
    void PutKnownHeaders();

    /// As PutKnownHeaders, with tubes that the table does not hold.
    void PutNewHeaders();

    /// Marks 29 rows, spread over the table, for the blocks 1 to 29.
    void MarkRows();

    /// Runs statements on a connection that is as durable as the program's.
    void Run(const std::string& statement);

    const std::filesystem::path& DatabasePath() const { return survey_.databasePath; }

    double ReadHeadersSeconds();
    double WriteHeadersSeconds();

    /// A walk over all rows with one prepared statement, and an update of each row whose mark is
    /// not empty with another: what a program of nothing but SQLite does.
    double PlainPassSeconds();

    /// The database and what lies beside it under its name.
    std::ptrdiff_t FileCount() const;

private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    using Database = std::unique_ptr<sqlite3, Close>;

    void PutHeaders(std::string_view client, int step);
    Database Open();
    void RequireEmptyMarks();

    /// The first thing said or asked ends the measurement.
    class NoBoxes : public MessageBoxes
    {
    public:
        void Critical(std::string_view text, std::string_view title) override;
        bool AskOkCancel(std::string_view text) override;
    };

    class NoEvents : public EventPump
    {
    public:
        void DoEvents() override {}
        void WaitForEvents() override {}
    };

    std::filesystem::path folder_;
    int rows_; // as made; Read Headers adds to them
    int reading_ = 0;
    WorkingState state_;
    ControlPanel panel_;
    NoBoxes boxes_;
    NoEvents events_;
    platform::SqliteEngine engine_;
    SurveyDatabase survey_{engine_};
};

} // namespace tarvex::bench
