#include "database/survey_world.h"

#include "core/record_file.h"
#include "core/start_up.h"
#include "database/read_headers.h"
#include "database/write_headers.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>

namespace tarvex::bench
{

namespace
{

[[noreturn]] void GiveUp(const std::string& reason)
{
    (void)std::fprintf(stderr, "survey_bench: %s\n", reason.c_str());
    std::exit(1);
}

void Execute(sqlite3* database, const std::string& sql)
{
    char* message = nullptr;
    if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
        GiveUp(message);
    }
}

/// A prepared statement of a program that uses nothing but SQLite.
class Prepared
{
public:
    Prepared(sqlite3* database, const char* sql)
    {
        if (sqlite3_prepare_v2(database, sql, -1, &statement_, nullptr) != SQLITE_OK) GiveUp(sql);
    }
    ~Prepared() { sqlite3_finalize(statement_); }
    Prepared(const Prepared&) = delete;
    Prepared& operator=(const Prepared&) = delete;

    operator sqlite3_stmt*() const { return statement_; }

    bool Step()
    {
        const int result = sqlite3_step(statement_);
        if (result != SQLITE_ROW && result != SQLITE_DONE) GiveUp(sqlite3_errstr(result));
        return result == SQLITE_ROW;
    }

private:
    sqlite3_stmt* statement_ = nullptr;
};

double Seconds(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

void SurveyWorld::NoBoxes::Critical(std::string_view text, std::string_view)
{
    GiveUp("a box: " + std::string(text));
}

bool SurveyWorld::NoBoxes::AskOkCancel(std::string_view text)
{
    GiveUp("a question: " + std::string(text));
}

SurveyWorld::SurveyWorld(const std::filesystem::path& parent, int rows, const std::string& mark)
    : folder_(parent / ("survey-bench-" + std::to_string(std::random_device()()))), rows_(rows)
{
    std::filesystem::create_directory(folder_);
    LoadMainForm(panel_, state_, [this] { return folder_; });
    LoadDatabaseForm(survey_, [this] { return folder_; });
    engine_.OpenTable(survey_.databasePath)->Close();
    Run("INSERT INTO tar_vex (cliente, cantiere, tubo, [profondità], passo, guide, nord, nlet, l0, "
        "l1, b) WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
        std::to_string(rows) +
        ") SELECT printf('C%07d', i), 'DIGA A  ', printf('T%03d', i % 1000), '0500', '1', '4', "
        "'+015', 1, '150926  080000  ', '160926  093015  ', " +
        mark + " FROM n");
}

SurveyWorld::~SurveyWorld()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void SurveyWorld::PutKnownHeaders()
{
    PutHeaders("C", rows_ / kBlockCount);
}

void SurveyWorld::PutNewHeaders()
{
    PutHeaders("N", 1);
}

void SurveyWorld::PutHeaders(std::string_view client, int step)
{
    ++reading_;
    RecordFile file(sizeof(BlockHeader));
    file.Open(state_.headerFilePath);
    for (int index = 0; index < kBlockCount; ++index) {
        const int row = client == "C" ? index * step : reading_ * kBlockCount + index;
        const std::string number = std::to_string(10'000'000 + row).substr(1);
        BlockHeader header = DefaultHeader(index);
        header.cliente = std::string(client) + number;
        header.cantiere = "DIGA A";
        header.tubo = "T" + number.substr(4);
        header.profondità = "0500";
        header.nlet = "02";
        header.data = "170926";
        header.ora = std::to_string(100'000 + reading_);
        file.Put(index + 1, header);
    }
}

void SurveyWorld::MarkRows()
{
    const std::string step = std::to_string(rows_ / 29);
    Run("UPDATE tar_vex SET b = (rowid - 1) / " + step + " + 1 WHERE (rowid - 1) % " + step +
        " = 0 AND (rowid - 1) / " + step + " < 29");
}

SurveyWorld::Database SurveyWorld::Open()
{
    sqlite3* database = nullptr;
    const int result = sqlite3_open(survey_.databasePath.c_str(), &database);
    Database owned(database);
    if (result != SQLITE_OK) GiveUp("no database");
    Execute(database, "PRAGMA synchronous = EXTRA");
    return owned;
}

void SurveyWorld::Run(const std::string& statement)
{
    Execute(Open().get(), statement);
}

double SurveyWorld::ReadHeadersSeconds()
{
    bool shown = false;
    const double seconds =
        Seconds([&] { ReadHeaders(survey_, state_, boxes_, [&] { shown = true; }); });
    if (!shown) GiveUp("no grid");
    return seconds;
}

double SurveyWorld::WriteHeadersSeconds()
{
    const double seconds = Seconds([&] { WriteHeaders(panel_, state_, survey_, events_, boxes_); });
    RequireEmptyMarks();
    return seconds;
}

/// Rows with a mark are committed one by one, for their headers are written one by one; the others
/// together.
double SurveyWorld::PlainPassSeconds()
{
    const double seconds = Seconds([&] {
        const Database database = Open();
        Prepared select(database.get(), "SELECT rowid, b FROM tar_vex ORDER BY rowid");
        Prepared update(database.get(), "UPDATE tar_vex SET b = '' WHERE rowid = ?");
        bool open = false;
        const auto commit = [&] {
            if (open) Execute(database.get(), "COMMIT");
            open = false;
        };
        while (select.Step()) {
            const auto* mark = sqlite3_column_text(select, 1);
            if (mark != nullptr && *mark == 0) continue;
            if (mark == nullptr && !open) Execute(database.get(), "BEGIN");
            open = open || mark == nullptr;
            if (mark != nullptr) commit();
            sqlite3_bind_int64(update, 1, sqlite3_column_int64(select, 0));
            update.Step();
            sqlite3_reset(update);
        }
        commit();
    });
    RequireEmptyMarks();
    return seconds;
}

std::ptrdiff_t SurveyWorld::FileCount() const
{
    const std::string name = survey_.databasePath.filename().string();
    return std::ranges::count_if(std::filesystem::directory_iterator(folder_),
                                 [&](const std::filesystem::directory_entry& entry) {
                                     return entry.path().filename().string().starts_with(name);
                                 });
}

void SurveyWorld::RequireEmptyMarks()
{
    const Database database = Open();
    Prepared left(database.get(), "SELECT count(*) FROM tar_vex WHERE b IS NOT ''");
    if (!left.Step() || sqlite3_column_int(left, 0) != 0) GiveUp("a mark was left");
}

} // namespace tarvex::bench
