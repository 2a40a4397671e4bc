#include "faults/survey_checks.h"

#include "platform/sqlite/raw_database.h"

#include <algorithm>

namespace tarvex::tests
{

namespace
{

/// A copy of the database with what lies beside it, which goes with this object.
class Copy
{
public:
    explicit Copy(const std::filesystem::path& database)
    {
        for (const char* part : {"", "-journal"}) {
            const std::filesystem::path source = database.string() + part;
            const std::filesystem::path target = Path().string() + part;
            if (std::filesystem::exists(source)) std::filesystem::copy_file(source, target);
        }
    }

    std::filesystem::path Path() const { return folder_ / "copy.mdb"; }

private:
    TemporaryFolder folder_;
};

std::vector<std::string> Texts(const QStringList& rows)
{
    std::vector<std::string> texts;
    for (const QString& row : rows)
        texts.push_back(row.toStdString());
    return texts;
}

std::vector<std::string> RowsIn(RawDatabase& database)
{
    if (database.Run("SELECT 1 FROM sqlite_schema WHERE name = 'tar_vex'").isEmpty()) return {};
    return Texts(database.Run("SELECT * FROM tar_vex ORDER BY rowid"));
}

} // namespace

std::vector<std::string> SurveyRows(const std::filesystem::path& database)
{
    const Copy copy(database);
    RawDatabase raw(copy.Path());
    return RowsIn(raw);
}

Complaints OfDatabase(const std::filesystem::path& database, const std::vector<std::string>& before,
                      const std::vector<std::string>& after)
{
    const Copy copy(database);
    RawDatabase raw(copy.Path());
    Complaints complaints;
    for (const auto& finding : Texts(raw.Run("PRAGMA integrity_check")))
        if (finding != "ok") complaints.push_back("the database: " + finding);
    if (!complaints.empty()) return complaints;

    const auto rows = RowsIn(raw);
    if (rows.size() < before.size()) complaints.emplace_back("rows are lost");
    if (rows.size() > after.size()) complaints.emplace_back("more rows than were made");
    bool changed = true;
    for (std::size_t index = 0; index < std::min(rows.size(), after.size()); ++index) {
        changed = changed && rows[index] == after[index];
        if (!changed && (index >= before.size() || rows[index] != before[index]))
            complaints.push_back("row " + std::to_string(index + 1) + " is " + rows[index]);
    }
    return complaints;
}

} // namespace tarvex::tests
