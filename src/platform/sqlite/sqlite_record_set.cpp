#include "platform/sqlite/sqlite_record_set.h"

#include "core/failure.h"
#include "platform/sqlite/survey_sql.h"

#include <utility>

namespace tarvex::platform
{

namespace
{

using Mark = RowWalk::Mark;

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
                                const std::vector<Condition>& conditions)
    : connection(std::move(c)),
      reader(*connection),
      walk(*connection, conditions),
      clearing(*connection)
{
}

SqliteRecordSet::SqliteRecordSet(std::filesystem::path file, Connect connect)
    : file_(std::move(file)), connect_(connect)
{
    Open(connect_(file_), {});
}

SqliteRecordSet::SqliteRecordSet(const SqliteRecordSet& table,
                                 const std::vector<Condition>& conditions)
    : file_(table.file_), connect_(table.connect_)
{
    Open(table.opened_->connection, conditions);
}

void SqliteRecordSet::Open(std::shared_ptr<SqliteConnection> connection,
                           const std::vector<Condition>& conditions)
{
    opened_.emplace(std::move(connection), conditions);
    opened_->walk.First();
}

SqliteRecordSet::Opened& SqliteRecordSet::RequireOpen()
{
    if (!opened_) throw RunTimeFailure("Object invalid or no longer set");
    return *opened_;
}

/// A look-up goes to the file that is in place now.
void SqliteRecordSet::GoToFileInPlace()
{
    if (!RequireOpen().connection->HasMoved()) return;
    Leave();
    Open(connect_(file_), {});
}

void SqliteRecordSet::KeepOthersFromWriting()
{
    GoToFileInPlace();
    row_.reset();
    const SqliteConnection& connection = *opened_->connection;
    if (!connection.InTransaction()) connection.Execute("BEGIN IMMEDIATE");
}

void SqliteRecordSet::LetOthersWrite()
{
    const SqliteConnection& connection = *RequireOpen().connection;
    row_.reset();
    if (connection.InTransaction()) Transaction(connection).Commit();
}

void SqliteRecordSet::SetFilter(std::string_view criterion)
{
    RequireOpen();
    filter_ = criterion;
}

std::unique_ptr<RecordSet> SqliteRecordSet::OpenRecordset()
{
    GoToFileInPlace();
    return std::make_unique<SqliteRecordSet>(*this, ParseCriterion(filter_));
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
    opened.clearing.Finish();
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
    // What a row with a mark sets off comes after all that was before it.
    if (opened.walk.AtEnd() || opened.walk.KindOfMark() == Mark::Set) opened.clearing.Finish();
}

void SqliteRecordSet::PassOverEmptyMarks()
{
    RequireOpen().walk.PassOverEmptyMarks();
}

void SqliteRecordSet::AddNew()
{
    RequireOpen();
    buffer_.emplace().newRow = true;
}

void SqliteRecordSet::Edit()
{
    RequireOpen().walk.Number(); // fails without a row
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
    Opened& opened = RequireOpen();
    if (!buffer_) throw RunTimeFailure("Update or CancelUpdate without AddNew or Edit");
    if (buffer_->newRow) {
        Insert();
    } else if (const FieldSet changed = Changes(); ClearsNullMark(changed)) {
        opened.walk.SetMark("");
        opened.clearing.Add(opened.walk.Number());
    } else if (changed.any()) {
        Write(changed);
    }
    buffer_.reset();
}

void SqliteRecordSet::Close()
{
    Opened& opened = RequireOpen();
    Leave();
    opened.clearing.Finish();
    opened_.reset();
}

Value SqliteRecordSet::CurrentValue(std::size_t field)
{
    if (field == kMark) return opened_->walk.MarkValue();
    const sqlite3_int64 number = opened_->walk.Number();
    if (!row_) {
        opened_->connection->RequireInPlace();
        row_ = opened_->reader.Read(number);
    }
    if (!row_) throw RunTimeFailure("Record is deleted");
    return (*row_)[field];
}

FieldSet SqliteRecordSet::Changes()
{
    FieldSet changed;
    for (const std::size_t field : Indexes(buffer_->set))
        changed[field] = !(CurrentValue(field) == buffer_->values[field]);
    return changed;
}

bool SqliteRecordSet::ClearsNullMark(const FieldSet& changed) const
{
    return changed.count() == 1 && changed[kMark] && buffer_->values[kMark] == Value("") &&
           opened_->walk.KindOfMark() == Mark::Null && !opened_->connection->InTransaction();
}

void SqliteRecordSet::Insert()
{
    SqliteConnection& connection = *opened_->connection;
    opened_->clearing.Finish();
    connection.RequireInPlace();
    Transaction transaction(connection);
    Statement insert(connection, InsertSql());
    for (std::size_t field = 0; field < buffer_->values.size(); ++field)
        insert.Bind(static_cast<int>(field) + 1, buffer_->values[field]);
    insert.Run();
    transaction.Commit();
}

/// A mark that was written meanwhile has not been handled, and stays.
void SqliteRecordSet::Write(const FieldSet& changed)
{
    Opened& opened = *opened_;
    opened.clearing.Finish();
    opened.connection->RequireInPlace();
    Transaction transaction(*opened.connection);
    Statement& update = UpdateOf(changed);
    int place = 0;
    for (const std::size_t field : Indexes(changed))
        update.Bind(++place, buffer_->values[field]);
    update.Bind(++place, opened.walk.Number());
    if (changed[kMark]) opened.walk.BindMark(update, ++place);
    update.Run();
    if (sqlite3_changes(opened.connection->Handle()) == 0) {
        throw RunTimeFailure("Another program has changed or deleted the record");
    }
    transaction.Commit();

    if (changed[kMark]) opened.walk.SetMark(buffer_->values[kMark]);
    row_.reset();
}

Statement& SqliteRecordSet::UpdateOf(const FieldSet& changed)
{
    const auto known = opened_->updates.find(changed.to_ullong());
    if (known != opened_->updates.end()) return known->second;
    std::string sql = UpdateSql(Indexes(changed));
    if (changed[kMark]) sql += WhileMarkIs();
    return opened_->updates.emplace(changed.to_ullong(), Statement(*opened_->connection, sql))
        .first->second;
}

} // namespace tarvex::platform
