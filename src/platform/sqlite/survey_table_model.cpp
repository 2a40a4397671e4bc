#include "platform/sqlite/survey_table_model.h"

#include "core/failure.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace tarvex::platform
{

namespace
{

constexpr int kRowsOfAPage = 128;
constexpr int kPagesKept = 32;
constexpr qlonglong kNoVersion = -1;

constexpr int kColumns = static_cast<int>(kSurveyFields.size());
const int kMarkColumn = static_cast<int>(FieldIndex(kMarkField));

} // namespace

SurveyTableModel::SurveyTableModel(DatabasePath path, QObject* parent)
    : QAbstractTableModel(parent), path_(std::move(path)), pages_(kPagesKept)
{
    Open();
}

int SurveyTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(numbers_.size());
}

int SurveyTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant SurveyTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
    const auto place = static_cast<std::size_t>(index.row() % kRowsOfAPage);
    const Page& page = PageOf(index.row());
    return place < page.size() ? page[place].value(index.column()) : QString();
}

QVariant SurveyTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical || role != Qt::DisplayRole) {
        return QAbstractTableModel::headerData(section, orientation, role);
    }
    const auto name = kSurveyFields.at(static_cast<std::size_t>(section));
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

Qt::ItemFlags SurveyTableModel::flags(const QModelIndex& index) const
{
    const auto flags = QAbstractTableModel::flags(index);
    return index.column() == kMarkColumn ? flags | Qt::ItemIsEditable : flags;
}

bool SurveyTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!(flags(index) & Qt::ItemIsEditable) || role != Qt::EditRole) return false;
    const QString mark = value.toString();
    if (mark == data(index).toString()) return true; // an untouched Null stays one
    if (!WriteMark(index.row(), mark)) return false;
    pages_.remove(index.row() / kRowsOfAPage);
    emit dataChanged(index, index);
    return true;
}

void SurveyTableModel::revert()
{
    if (!connection_ || path_() != openedPath_) return Open();
    try {
        if (DataVersion() != dataVersion_) Load();
    } catch (const RunTimeFailure&) {
        Open();
    }
}

void SurveyTableModel::Open()
{
    connection_.reset();
    try {
        openedPath_ = path_();
        std::error_code error;
        if (!std::filesystem::exists(openedPath_, error)) return TakeNumbers({});
        connection_ = std::make_unique<SqliteConnection>(openedPath_);
        connection_->Execute("PRAGMA synchronous = EXTRA");
        connection_->Prepare(SelectRangeSql()); // fails when the table is not ours
        Load();
    } catch (const RunTimeFailure&) {
        connection_.reset();
        TakeNumbers({});
    }
}

void SurveyTableModel::Load()
{
    dataVersion_ = DataVersion(); // before the rows: a write in between is seen the next time
    QSqlQuery select = connection_->Prepare(SelectNumbersSql());
    Run(select);
    std::vector<qlonglong> numbers;
    while (select.next())
        numbers.push_back(select.value(0).toLongLong());
    TakeNumbers(std::move(numbers));
}

/// Changes with every commit of another connection.
qlonglong SurveyTableModel::DataVersion() const
{
    QSqlQuery query = connection_->Prepare("PRAGMA data_version");
    Run(query);
    query.next();
    return query.value(0).toLongLong();
}

/// Rows are only ever added by this program: what the grid shows and where it stands then survives.
void SurveyTableModel::TakeNumbers(std::vector<qlonglong> numbers)
{
    const std::size_t before = numbers_.size();
    const bool grown =
        numbers.size() >= before && std::equal(numbers_.begin(), numbers_.end(), numbers.begin());
    if (!grown) {
        beginResetModel();
        Replace(std::move(numbers));
        return endResetModel();
    }
    if (numbers.size() > before) {
        beginInsertRows({}, static_cast<int>(before), static_cast<int>(numbers.size()) - 1);
        Replace(std::move(numbers));
        endInsertRows();
    }
    pages_.clear();
    if (before > 0) {
        emit dataChanged(index(0, 0), index(static_cast<int>(before) - 1, kColumns - 1));
    }
}

void SurveyTableModel::Replace(std::vector<qlonglong> numbers)
{
    numbers_ = std::move(numbers);
    pages_.clear(); // the last page may have been a shorter one
}

const SurveyTableModel::Page& SurveyTableModel::PageOf(int row) const
{
    const int number = row / kRowsOfAPage;
    if (!pages_.contains(number)) {
        pages_.insert(number, ReadPage(static_cast<std::size_t>(number) * kRowsOfAPage).release());
    }
    return *pages_.object(number);
}

/// A row that is gone meanwhile shows nothing, and so do all when the file cannot be read; they are
/// then looked for again at the next revert.
std::unique_ptr<SurveyTableModel::Page> SurveyTableModel::ReadPage(std::size_t first) const
{
    const std::size_t count = std::min<std::size_t>(kRowsOfAPage, numbers_.size() - first);
    auto page = std::make_unique<Page>(count);
    const auto begin = numbers_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = begin + static_cast<std::ptrdiff_t>(count);
    try {
        QSqlQuery select = connection_->Prepare(SelectRangeSql());
        select.bindValue(0, *begin);
        select.bindValue(1, *(end - 1));
        Run(select);
        while (select.next()) {
            const auto number = std::lower_bound(begin, end, select.value(0).toLongLong());
            if (number == end || *number != select.value(0).toLongLong()) continue;
            QStringList& row = (*page)[static_cast<std::size_t>(number - begin)];
            for (int field = 1; field <= kColumns; ++field)
                row += select.value(field).toString();
        }
    } catch (const RunTimeFailure&) {
        dataVersion_ = kNoVersion;
    }
    return page;
}

bool SurveyTableModel::WriteMark(int row, const QString& mark)
{
    const std::array<std::size_t, 1> fields{static_cast<std::size_t>(kMarkColumn)};
    try {
        QSqlQuery update = connection_->Prepare(UpdateSql(fields));
        update.bindValue(0, ToSql(FromSql(mark))); // what the code page does not hold becomes "?"
        update.bindValue(1, numbers_[static_cast<std::size_t>(row)]);
        Run(update);
        return update.numRowsAffected() == 1;
    } catch (const RunTimeFailure&) {
        return false;
    }
}

} // namespace tarvex::platform
