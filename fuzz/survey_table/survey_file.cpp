#include "survey_table/survey_file.h"

#include "common/require.h"
#include "database/survey_fields.h"
#include "platform/sqlite/survey_sql.h"
#include "support/temporary_folder.h"

#include <utility>

namespace tarvex::fuzz
{

namespace
{

struct Close {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
using Database = std::unique_ptr<sqlite3, Close>;

Database Open(const std::filesystem::path& path)
{
    sqlite3* handle = nullptr;
    Require(sqlite3_open(path.c_str(), &handle) == SQLITE_OK, "the test's own file opens");
    return Database(handle);
}

/// What the target itself makes must work.
void Run(sqlite3* handle, const std::string& sql)
{
    Require(sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, sql);
}

std::string Columns(const std::string& last)
{
    std::string columns;
    for (const auto field : kSurveyFields)
        if (field != kMarkField) columns += "[" + std::string(field) + "], ";
    return columns + last;
}

constexpr auto kEndlessView =
    "CREATE VIEW tar_vex AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
    "SELECT i FROM n";

/// The program's table with another last column, or with something after it.
std::string Table(const std::string& last, const std::string& after = "")
{
    return "CREATE TABLE tar_vex (" + Columns(last) + ")" + after;
}

/// What another program's table of the same name may be like, each refused.
std::string ForeignSchema(Choices& choices)
{
    const std::string schemas[] = {
        "CREATE TABLE tar_vex (a)",
        Table("b, x AS (hex(b))"),
        Table("b, x DEFAULT (hex(zeroblob(1000000)))"),
        Table("b, PRIMARY KEY (cliente)", " WITHOUT ROWID"),
        Table("b, rowid"),
        Table("b", "; CREATE TRIGGER t AFTER UPDATE ON tar_vex BEGIN DELETE FROM tar_vex; END"),
        Table("b", "; CREATE TRIGGER t AFTER INSERT ON tar_vex BEGIN DELETE FROM tar_vex; END"),
        Table("b", "; CREATE INDEX i ON tar_vex (b) WHERE length(b) > 2"),
        Table("b", "; CREATE INDEX i ON tar_vex (upper(b))"),
        Table("b", "; CREATE INDEX tar_vex_tube ON tar_vex (b)"),
        "CREATE TABLE other (" + Columns("b") + "); CREATE VIEW tar_vex AS SELECT * FROM other",
        kEndlessView};
    return choices.OneOf(schemas);
}

} // namespace

SurveyFile::SurveyFile(std::filesystem::path path, Choices& choices) : path_(std::move(path))
{
    constexpr Kind kinds[] = {Kind::Ordinary, Kind::Ordinary, Kind::Missing, Kind::Foreign,
                              Kind::Damaged};
    kind_ = choices.OneOf(kinds);
    if (kind_ == Kind::Foreign) MakeForeign(choices);
    if (kind_ == Kind::Ordinary || kind_ == Kind::Damaged) MakeOrdinary(choices);
    if (kind_ == Kind::Damaged) Damage(choices);
}

void SurveyFile::MakeOrdinary(Choices& choices)
{
    const auto database = Open(path_);
    Run(database.get(), "PRAGMA synchronous = OFF; BEGIN");
    Run(database.get(), choices.Chance(50) ? platform::CreateTableSql() : Table("x, b TEXT, y"));
    if (choices.Chance(30)) Run(database.get(), "CREATE TABLE \"strange name\" (a UNIQUE)");
    if (choices.Chance(30)) Run(database.get(), platform::CreateIndexSql());
    for (unsigned rows = choices.Below(12); rows > 0; --rows)
        AddRow(database.get(), choices);
    Run(database.get(), "COMMIT");
}

/// Any value of any type in each of the first fields, in a slot and in the mark.
void SurveyFile::AddRow(sqlite3* handle, Choices& choices)
{
    sqlite3_stmt* insert = nullptr;
    Require(sqlite3_prepare_v2(handle, platform::InsertSql().c_str(), -1, &insert, nullptr) ==
                SQLITE_OK,
            "a row can be added");
    constexpr int places[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 34, 35};
    constexpr double numbers[] = {0, 1, 25, 26, -1, 1e300, 0.5, 2147483648.0};
    for (const int place : places) {
        const std::string text = choices.HostileText(40);
        const auto size = static_cast<int>(text.size());
        switch (choices.Below(6)) {
        case 0:
            break; // Null
        case 1:
            sqlite3_bind_double(insert, place, choices.OneOf(numbers));
            break;
        case 2:
            sqlite3_bind_int64(insert, place,
                               static_cast<sqlite3_int64>(choices.Below(65536)) - 100);
            break;
        case 3:
            sqlite3_bind_blob(insert, place, text.data(), size, SQLITE_TRANSIENT);
            break;
        default:
            sqlite3_bind_text(insert, place, text.data(), size, SQLITE_TRANSIENT);
        }
    }
    Require(sqlite3_step(insert) == SQLITE_DONE, "a row is added");
    sqlite3_finalize(insert);
}

void SurveyFile::MakeForeign(Choices& choices)
{
    if (choices.Chance(30)) {
        tests::WriteFile(path_, "no database: " + choices.Bytes(2000));
        return;
    }
    Run(Open(path_).get(), ForeignSchema(choices));
}

void SurveyFile::Damage(Choices& choices)
{
    std::string bytes = Bytes();
    for (unsigned places = 1 + choices.Below(8); places > 0; --places)
        bytes[choices.Below(65536) % bytes.size()] = static_cast<char>(choices.Below(256));
    if (choices.Chance(20)) bytes.resize(choices.Below(65536) % bytes.size());
    tests::WriteFile(path_, bytes);
}

std::string SurveyFile::Bytes() const
{
    return tests::FileBytes(path_);
}

int SurveyFile::Rows() const
{
    return std::stoi(Ask("SELECT count(*) FROM tar_vex"));
}

bool SurveyFile::IsSound() const
{
    return Ask("PRAGMA integrity_check") == "ok";
}

std::string SurveyFile::Ask(const char* question) const
{
    std::string answer;
    const auto keep = [](void* kept, int /*columns*/, char** texts, char** /*names*/) {
        if (texts[0] != nullptr) *static_cast<std::string*>(kept) = texts[0];
        return 0;
    };
    sqlite3_exec(Open(path_).get(), question, keep, &answer, nullptr);
    return answer;
}

} // namespace tarvex::fuzz
