#include "platform/sqlite/survey_table_model.h"

#include "core/code_page.h"
#include "platform/sqlite/ordinary_table.h"
#include "platform/sqlite/statement.h"
#include "platform/sqlite/survey_sql.h"

#include <algorithm>
#include <utility>

namespace tarvex::platform
{

namespace
{

constexpr int kRowsOfAPage = 128;
constexpr int kPagesKept = 32;
constexpr std::size_t kLongestShown = 100; // bytes; no field is as long

constexpr int kColumns = static_cast<int>(kSurveyFields.size());
const int kMarkColumn = static_cast<int>(FieldIndex(kMarkField));
constexpr int kTubeColumns = 3; // client, site and tube come first

QString Shown(std::string_view utf8)
{
    const bool whole = utf8.size() <= kLongestShown;
    const auto size = static_cast<qsizetype>(whole ? utf8.size() : kLongestShown);
    return QString::fromUtf8(utf8.data(), size) + (whole ? "" : "...");
}

/// What the code page does not hold becomes "?".
Value StoredMark(const QString& mark)
{
    const QByteArray utf8 = mark.toUtf8();
    return code_page::FromUtf8({reinterpret_cast<const char8_t*>(utf8.constData()),
                                static_cast<std::size_t>(utf8.size())});
}

} // namespace

SurveyTableModel::SurveyTableModel(DatabasePath path, QObject* parent)
    : QAbstractTableModel(parent), path_(std::move(path)), pages_(kPagesKept)
{
    SurveyTableModel::revert();
}

int SurveyTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(numbers_.Count());
}

int SurveyTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant SurveyTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    if (role == Qt::StatusTipRole) return refusal_;
    if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
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
    refusal_.clear();
    const QString mark = value.toString();
    if (mark == data(index).toString()) return true; // an untouched Null stays one
    try {
        WriteMark(index.row(), mark);
    } catch (const DatabaseLocked&) {
        refusal_ = QStringLiteral("another program is writing to the database. Enter tries again, "
                                  "Escape drops the mark.");
    } catch (const RunTimeFailure&) {
        refusal_ = QStringLiteral("the database has changed or cannot be written. Look at its rows "
                                  "and type the mark again.");
        QMetaObject::invokeMethod(
            this, [this] { revert(); }, Qt::QueuedConnection);
    }
    if (!refusal_.isEmpty()) return false;
    pages_.remove(index.row() / kRowsOfAPage);
    emit dataChanged(index, index);
    return true;
}

void SurveyTableModel::revert()
{
    try {
        Load();
    } catch (const DatabaseLocked&) {
        version_.Forget();
    } catch (const RunTimeFailure&) {
        TakeNumbers({}, {});
    }
}

/// Fails when there is no file, or none of ours.
std::unique_ptr<SqliteConnection> SurveyTableModel::Connect() const
{
    auto connection = std::make_unique<SqliteConnection>(path_(), SqliteConnection::When::Exists);
    RequireOrdinaryTable(*connection);
    const Statement allFields(*connection, SelectRangeSql()); // fails when the table lacks one
    return connection;
}

void SurveyTableModel::Load()
{
    const auto connection = Connect();
    Statement hold(*connection, SelectNumbersSql());
    hold.Step(); // from here on nobody writes
    const FileVersion version(*connection);
    if (version != version_) TakeNumbers(version, RowNumbers(*connection));
}

/// This program only ever adds rows: then the grid keeps what it shows and its current cell.
void SurveyTableModel::TakeNumbers(const FileVersion& version, RowNumbers numbers)
{
    const std::size_t before = numbers_.Count();
    const bool goesOn = version.IsOfSameFile(version_) && numbers_.GoOnIn(numbers);
    version_ = version;
    pages_.clear();
    if (!goesOn) {
        beginResetModel();
        Replace(std::move(numbers));
        return endResetModel();
    }
    if (numbers.Count() > before) {
        beginInsertRows({}, static_cast<int>(before), static_cast<int>(numbers.Count()) - 1);
        Replace(std::move(numbers));
        endInsertRows();
    }
    if (before > 0) {
        emit dataChanged(index(0, 0), index(static_cast<int>(before) - 1, kColumns - 1));
    }
}

void SurveyTableModel::Replace(RowNumbers numbers)
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

/// A row that is gone meanwhile shows nothing, and so do all when the file cannot be read or is
/// another one; they are then looked for again at the next revert.
std::unique_ptr<SurveyTableModel::Page> SurveyTableModel::ReadPage(std::size_t first) const
{
    const std::size_t count = std::min<std::size_t>(kRowsOfAPage, numbers_.Count() - first);
    auto page = std::make_unique<Page>(count);
    try {
        const auto connection = Connect();
        Statement select(*connection, SelectRangeSql());
        select.Bind(1, numbers_.At(first)).Bind(2, numbers_.At(first + count - 1));
        while (select.Step()) {
            if (!FileVersion(*connection).IsOfSameFile(version_)) break;
            const auto place = numbers_.PlaceOf(select.Number(0));
            if (!place) continue;
            QStringList& row = page->at(*place - first);
            row.clear();
            for (int field = 1; field <= kColumns; ++field)
                row += Shown(select.Text(field));
        }
    } catch (const RunTimeFailure&) {
        version_.Forget();
    }
    return page;
}

/// What others have written meanwhile is taken in at the next revert.
void SurveyTableModel::WriteMark(int row, const QString& mark)
{
    const auto connection = Connect();
    FileVersion version;
    {
        Transaction transaction(*connection);
        version = FileVersion(*connection);
        if (!version.IsOfSameFile(version_) || !ShowsTube(*connection, row)) {
            throw RunTimeFailure("Record is deleted");
        }
        const std::array<std::size_t, 1> fields{static_cast<std::size_t>(kMarkColumn)};
        Statement update(*connection, UpdateSql(fields));
        update.Bind(1, StoredMark(mark)).Bind(2, numbers_.At(static_cast<std::size_t>(row))).Run();
        transaction.Commit();
    }
    if (version == version_) version_ = FileVersion(*connection);
}

bool SurveyTableModel::ShowsTube(const SqliteConnection& connection, int row) const
{
    Statement select(connection, SelectRowSql());
    if (!select.Bind(1, numbers_.At(static_cast<std::size_t>(row))).Step()) return false;
    const Page& page = PageOf(row);
    const QStringList& shown = page[static_cast<std::size_t>(row % kRowsOfAPage)];
    for (int column = 0; column < kTubeColumns; ++column)
        if (shown.value(column) != Shown(select.Text(column))) return false;
    return true;
}

} // namespace tarvex::platform
