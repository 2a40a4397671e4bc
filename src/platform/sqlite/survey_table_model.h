#pragma once

#include "platform/sqlite/file_version.h"
#include "platform/sqlite/row_numbers.h"
#include "platform/sqlite/sqlite_connection.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QStringList>

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace tarvex::platform
{

/// The survey table for a grid: a row a tube in the order in which they were added, a column a
/// field under its name. Only the mark can be edited, and is in the file when setData returns true.
/// Rows are read a page at a time when they are asked for; the file is not kept open in between.
/// A text is cut where it is longer than any field. Without a database, or with one that is not
/// ours, there are no rows; none is made here.
class SurveyTableModel : public QAbstractTableModel
{
public:
    using DatabasePath = std::function<std::filesystem::path()>;

    /// `path` is asked each time: the database is where the program works at that moment.
    explicit SurveyTableModel(DatabasePath path, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;

    /// Qt::StatusTipRole says why the last mark given to setData is not in the file, or nothing.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// False, with the mark as it was, when it cannot be written, and when the row in the file is
    /// no longer that of the tube shown.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// Takes in what has been written to the database since it was last looked at, and another file
    /// that has been put in its place. While another program writes, what is shown stays.
    void revert() override;

private:
    using Page = std::vector<QStringList>;

    std::unique_ptr<SqliteConnection> Connect() const;
    void Load();
    void TakeNumbers(const FileVersion& version, RowNumbers numbers);
    void Replace(RowNumbers numbers);
    const Page& PageOf(int row) const;
    std::unique_ptr<Page> ReadPage(std::size_t first) const;
    void WriteMark(int row, const QString& mark);
    bool ShowsTube(const SqliteConnection& connection, int row) const;

    DatabasePath path_;
    mutable FileVersion version_; // of what has been read
    RowNumbers numbers_;
    mutable QCache<int, Page> pages_;
    QString refusal_; // of the last mark
};

} // namespace tarvex::platform
