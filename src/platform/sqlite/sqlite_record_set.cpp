#include "platform/sqlite/sqlite_record_set.h"

#include "core/failure.h"

#include <QSqlError>

#include <utility>

namespace tarvex::platform
{

namespace
{

const std::size_t kMark = FieldIndex(kMarkField);

std::vector<std::size_t> Indexes(const FieldSet& fields)
{
    std::vector<std::size_t> indexes;
    for (std::size_t field = 0; field < fields.size(); ++field)
        if (fields[field]) indexes.push_back(field);
    return indexes;
}

} // namespace

SqliteRecordSet::Opened::Opened(std::shared_ptr<SqliteConnection> c,
                                std::vector<Condition> conditions)
    : connection(std::move(c)),
      walk(*connection, std::move(conditions)),
      selectRow(connection->Prepare(SelectRowSql()))
{
}

SqliteRecordSet::SqliteRecordSet(std::shared_ptr<SqliteConnection> connection,
                                 std::vector<Condition> conditions)
    : opened_(std::in_place, std::move(connection), std::move(conditions))
{
}

SqliteRecordSet::Opened& SqliteRecordSet::RequireOpen()
{
    if (!opened_) throw RunTimeFailure("Object invalid or no longer set");
    return *opened_;
}

void SqliteRecordSet::SetFilter(std::string_view criterion)
{
    RequireOpen();
    filter_ = criterion;
}

std::unique_ptr<RecordSet> SqliteRecordSet::OpenRecordset()
{
    return std::make_unique<SqliteRecordSet>(RequireOpen().connection, ParseCriterion(filter_));
}

void SqliteRecordSet::Leave()
{
    row_.reset();
    buffer_.reset();
}

void SqliteRecordSet::MoveFirst()
{
    Opened& opened = RequireOpen();
    Leave();
    opened.walk.First();
    if (opened.walk.AtEnd()) throw RunTimeFailure("No current record");
}

bool SqliteRecordSet::Eof()
{
    return RequireOpen().walk.AtEnd();
}

void SqliteRecordSet::MoveNext()
{
    Opened& opened = RequireOpen();
    Leave();
    opened.walk.Next();
}

void SqliteRecordSet::AddNew()
{
    RequireOpen();
    buffer_.emplace().newRow = true;
}

void SqliteRecordSet::Edit()
{
    RequireOpen().walk.Current();
    buffer_.emplace();
}

Value SqliteRecordSet::Fields(std::string_view name)
{
    RequireOpen();
    const std::size_t field = FieldIndex(name);
    if (buffer_ && (buffer_->newRow || buffer_->set[field])) return buffer_->values[field];
    return CurrentValue(field);
}

void SqliteRecordSet::SetField(std::string_view name, const Value& value)
{
    RequireOpen();
    const std::size_t field = FieldIndex(name);
    if (!buffer_) throw RunTimeFailure("Update or CancelUpdate without AddNew or Edit");
    buffer_->values[field] = StoredForm(field, value);
    buffer_->set.set(field);
}

void SqliteRecordSet::Update()
{
    RequireOpen();
    if (!buffer_) throw RunTimeFailure("Update or CancelUpdate without AddNew or Edit");
    if (buffer_->newRow) {
        Insert();
    } else {
        WriteChanges();
    }
    buffer_.reset();
}

void SqliteRecordSet::Close()
{
    RequireOpen();
    Leave();
    opened_.reset();
}

const Value& SqliteRecordSet::CurrentValue(std::size_t field)
{
    RowWalk::Row& current = opened_->walk.Current();
    if (field == kMark && !row_) return current.mark;
    if (!row_) ReadCurrentRow();
    return (*row_)[field];
}

void SqliteRecordSet::ReadCurrentRow()
{
    QSqlQuery& select = opened_->selectRow;
    select.bindValue(0, opened_->walk.Current().number);
    Run(select);
    if (!select.next()) throw RunTimeFailure("Record is deleted");
    SurveyValues row;
    for (std::size_t field = 0; field < row.size(); ++field)
        row[field] = FromSql(select.value(static_cast<int>(field)));
    select.finish();
    row_ = std::move(row);
}

void SqliteRecordSet::Insert()
{
    QSqlQuery insert = opened_->connection->Prepare(InsertSql());
    for (std::size_t field = 0; field < buffer_->values.size(); ++field)
        insert.bindValue(static_cast<int>(field), ToSql(buffer_->values[field]));
    Run(insert);
}

void SqliteRecordSet::WriteChanges()
{
    FieldSet changed;
    for (const std::size_t field : Indexes(buffer_->set))
        changed[field] = !(CurrentValue(field) == buffer_->values[field]);
    if (changed.none()) return;

    RowWalk::Row& current = opened_->walk.Current();
    QSqlQuery& update = UpdateOf(changed);
    int bound = 0;
    for (const std::size_t field : Indexes(changed))
        update.bindValue(bound++, ToSql(buffer_->values[field]));
    update.bindValue(bound, current.number);
    Run(update);
    if (update.numRowsAffected() == 0) throw RunTimeFailure("Record is deleted");

    if (changed[kMark]) current.mark = buffer_->values[kMark];
    row_.reset();
}

QSqlQuery& SqliteRecordSet::UpdateOf(const FieldSet& changed)
{
    const auto known = opened_->updates.find(changed.to_ullong());
    if (known != opened_->updates.end()) return known->second;
    QSqlQuery update = opened_->connection->Prepare(UpdateSql(Indexes(changed)));
    return opened_->updates.emplace(changed.to_ullong(), std::move(update)).first->second;
}

} // namespace tarvex::platform
