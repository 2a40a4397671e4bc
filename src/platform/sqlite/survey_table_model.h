#pragma once

#include "platform/sqlite/sqlite_connection.h"
#include "platform/sqlite/survey_sql.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QStringList>

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace tarvex::platform
{

/// The survey table for a grid: a row a tube in the order in which they were added, a column a
/// field under its name. Only the mark can be edited, and is in the file when setData returns true.
/// Rows are read a page at a time when they are asked for, and no lock is held in between. Without
/// a database, or with one that is not ours, there are no rows; none is made here.
class SurveyTableModel : public QAbstractTableModel
{
public:
    using DatabasePath = std::function<std::filesystem::path()>;

    explicit SurveyTableModel(DatabasePath path, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// False, with the mark as it was, when it cannot be written.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    /// Takes in what has been written to the database since it was last looked at.
    void revert() override;

private:
    using Page = std::vector<QStringList>;

    void Open();
    void Load();
    qlonglong DataVersion() const;
    void TakeNumbers(std::vector<qlonglong> numbers);
    void Replace(std::vector<qlonglong> numbers);
    const Page& PageOf(int row) const;
    std::unique_ptr<Page> ReadPage(std::size_t first) const;
    bool WriteMark(int row, const QString& mark);

    DatabasePath path_;
    std::filesystem::path openedPath_;
    std::unique_ptr<SqliteConnection> connection_;
    mutable qlonglong dataVersion_ = 0; // of what has been read
    std::vector<qlonglong> numbers_;    // of all rows
    mutable QCache<int, Page> pages_;
};

} // namespace tarvex::platform
