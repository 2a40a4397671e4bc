#include "database/survey_world.h"

#include "core/record_file.h"
#include "core/start_up.h"
#include "database/read_headers.h"
#include "database/write_headers.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

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

constexpr auto kConnection = "bench";

[[noreturn]] void GiveUp(const std::string& reason)
{
    (void)std::fprintf(stderr, "survey_bench: %s\n", reason.c_str());
    std::exit(1);
}

void Require(bool done, const QSqlQuery& query)
{
    if (!done) GiveUp(query.lastError().text().toStdString());
}

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

SurveyWorld::SurveyWorld(const std::filesystem::path& parent, int rows, const QString& mark)
    : folder_(parent / ("survey-bench-" + std::to_string(std::random_device()()))), rows_(rows)
{
    std::filesystem::create_directory(folder_);
    LoadMainForm(panel_, state_, headers_, [this] { return folder_; });
    LoadDatabaseForm(survey_, [this] { return folder_; });
    engine_.OpenTable(survey_.DatabasePath)->Close();
    Run("INSERT INTO tar_vex (cliente, cantiere, tubo, [profondità], passo, guide, nord, nlet, l0, "
        "l1, b) WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
        QString::number(rows) +
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
    file.Open(state_.HeaderFilePath);
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
    const QString step = QString::number(rows_ / 29);
    Run("UPDATE tar_vex SET b = (rowid - 1) / " + step + " + 1 WHERE (rowid - 1) % " + step +
        " = 0 AND (rowid - 1) / " + step + " < 29");
}

QSqlDatabase SurveyWorld::Open()
{
    auto database = QSqlDatabase::addDatabase("QSQLITE", kConnection);
    database.setDatabaseName(QString::fromStdString(survey_.DatabasePath.string()));
    if (!database.open()) GiveUp("no database");
    QSqlQuery pragma(database);
    Require(pragma.exec("PRAGMA synchronous = EXTRA"), pragma);
    return database;
}

void SurveyWorld::Run(const QString& statement)
{
    {
        const QSqlDatabase database = Open();
        QSqlQuery query(database);
        Require(query.exec(statement), query);
    }
    QSqlDatabase::removeDatabase(kConnection);
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
    const double seconds =
        Seconds([&] { WriteHeaders(panel_, state_, headers_, survey_, events_, boxes_); });
    RequireEmptyMarks();
    return seconds;
}

double SurveyWorld::PlainPassSeconds()
{
    const double seconds = Seconds([&] {
        {
            const QSqlDatabase database = Open();
            QSqlQuery select(database);
            select.setForwardOnly(true);
            Require(select.prepare("SELECT rowid, b FROM tar_vex ORDER BY rowid"), select);
            QSqlQuery update(database);
            Require(update.prepare("UPDATE tar_vex SET b = '' WHERE rowid = ?"), update);
            Require(select.exec(), select);
            while (select.next()) {
                if (!select.value(1).isNull() && select.value(1).toString().isEmpty()) continue;
                update.bindValue(0, select.value(0));
                Require(update.exec(), update);
            }
        }
        QSqlDatabase::removeDatabase(kConnection);
    });
    RequireEmptyMarks();
    return seconds;
}

void SurveyWorld::RequireEmptyMarks()
{
    {
        const QSqlDatabase database = Open();
        QSqlQuery query(database);
        Require(query.exec("SELECT count(*) FROM tar_vex WHERE b = ''") && query.next(), query);
        if (query.value(0).toInt() != rows_) GiveUp("a mark was left");
    }
    QSqlDatabase::removeDatabase(kConnection);
}

} // namespace tarvex::bench
