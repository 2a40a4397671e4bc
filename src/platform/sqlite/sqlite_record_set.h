#pragma once

#include "database/record_set.h"
#include "platform/sqlite/mark_clearing.h"
#include "platform/sqlite/row_reader.h"
#include "platform/sqlite/row_walk.h"
#include "platform/sqlite/sqlite_connection.h"

#include <bitset>
#include <filesystem>
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
    /// Opens the database for a new handle.
    using Connect = std::shared_ptr<SqliteConnection> (*)(const std::filesystem::path& file);

    /// Over all rows of `file`.
    SqliteRecordSet(std::filesystem::path file, Connect connect);

    /// Over the rows of the same table that meet `conditions`. Fails when one names an unknown
    /// field.
    SqliteRecordSet(const SqliteRecordSet& table, const std::vector<Condition>& conditions);

    void SetFilter(std::string_view criterion) override;
    std::unique_ptr<RecordSet> OpenRecordset() override;
    void MoveFirst() override;
    bool Eof() override;
    void MoveNext() override;
    void PassOverEmptyMarks() override;
    void AddNew() override;
    void Edit() override;
    void Update() override;
    Value Fields(std::string_view name) override;
    void SetField(std::string_view name, const Value& value) override;
    void KeepOthersFromWriting() override;
    void LetOthersWrite() override;
    void Close() override;

private:
    /// What is open between OpenRecordset and Close.
    struct Opened {
        Opened(std::shared_ptr<SqliteConnection> c, const std::vector<Condition>& conditions);

        std::shared_ptr<SqliteConnection> connection;
        RowReader reader;
        RowWalk walk;
        MarkClearing clearing;
        std::map<unsigned long long, Statement> updates; // by the set of fields
    };

    Opened& RequireOpen();
    void Open(std::shared_ptr<SqliteConnection> connection,
              const std::vector<Condition>& conditions);
    void GoToFileInPlace();
    void Leave();
    void ArriveAtRow();
    Value CurrentValue(std::size_t field);
    bool ClearsNullMark(const FieldSet& changed) const;
    FieldSet Changes();
    void Insert();
    void Write(const FieldSet& changed);
    Statement& UpdateOf(const FieldSet& changed);

    std::filesystem::path file_;
    Connect connect_;
    std::optional<Opened> opened_;
    std::string filter_;
    std::optional<SurveyValues> row_; // the current row, once more than its mark was asked for
    std::optional<EditBuffer> buffer_;
};

} // namespace tarvex::platform
