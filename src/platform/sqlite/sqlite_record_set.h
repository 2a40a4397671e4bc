#pragma once

#include "database/record_set.h"
#include "platform/sqlite/row_walk.h"
#include "platform/sqlite/sqlite_connection.h"

#include <bitset>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvex::platform
{

/// Some of the fields of a row.
using FieldSet = std::bitset<kSurveyFields.size()>;

/// What AddNew or Edit has started and Update commits.
struct EditBuffer {
    bool newRow = false;
    FieldSet set;
    SurveyValues values;
};

/// A record set over rows of the table `tar_vex`. A field is read when it is asked for; Update
/// writes only what it changes, so that a row which is set to what it holds costs no write.
class SqliteRecordSet : public RecordSet
{
public:
    /// Over the rows that meet `conditions`. Fails when one names an unknown field, and when the
    /// table lacks a field.
    SqliteRecordSet(std::shared_ptr<SqliteConnection> connection,
                    std::vector<Condition> conditions);

    void SetFilter(std::string_view criterion) override;
    std::unique_ptr<RecordSet> OpenRecordset() override;
    void MoveFirst() override;
    bool Eof() override;
    void MoveNext() override;
    void AddNew() override;
    void Edit() override;
    void Update() override;
    Value Fields(std::string_view name) override;
    void SetField(std::string_view name, const Value& value) override;
    void Close() override;

private:
    /// What is open between OpenRecordset and Close.
    struct Opened {
        Opened(std::shared_ptr<SqliteConnection> c, std::vector<Condition> conditions);

        std::shared_ptr<SqliteConnection> connection;
        RowWalk walk;
        QSqlQuery selectRow;
        std::map<unsigned long long, QSqlQuery> updates; // by the set of fields
    };

    Opened& RequireOpen();
    void Leave();
    const Value& CurrentValue(std::size_t field);
    void ReadCurrentRow();
    void Insert();
    void WriteChanges();
    QSqlQuery& UpdateOf(const FieldSet& changed);

    std::optional<Opened> opened_;
    std::string filter_;
    std::optional<SurveyValues> row_; // the current row, once more than its mark was asked for
    std::optional<EditBuffer> buffer_;
};

} // namespace tarvex::platform
