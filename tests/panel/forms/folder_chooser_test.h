#pragma once

#include "panel/forms/forms_test.h"
#include "platform/text/qt_text.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>

#include <filesystem>
#include <string>

namespace tarvex::tests
{

namespace fs = std::filesystem;

/// The folder chooser on folders of its own; the home folder is one of them.
class FolderChooser : public FormsTest
{
protected:
    FolderChooser()
    {
        fs::create_directory(home);
        qputenv("HOME", home.c_str());
    }
    ~FolderChooser() override { qputenv("HOME", homeBefore_); }

    static QTreeView& Dir1() { return Control<QTreeView>("Form6", "Dir1"); }
    static QComboBox& Drive1() { return Control<QComboBox>("Form6", "Drive1"); }
    static QPushButton& Ok() { return Control<QPushButton>("Form6", "command3d1"); }
    static std::string Reason()
    {
        return Control<QLabel>("Form6", "LabelReason").text().toStdString();
    }
    static fs::path ShownPath()
    {
        return Control<QLabel>("Form6", "LabelPath").text().toStdString();
    }
    static std::string Drive() { return Drive1().currentText().toStdString(); }

    /// The row of a folder among those beside it; -1 when it is not in the list.
    static int RowOf(const fs::path& folder)
    {
        const auto index = IndexOf(folder);
        return index.isValid() ? index.row() : -1;
    }

    /// As a click on the folder's row.
    static void GoTo(const fs::path& folder) { Dir1().setCurrentIndex(IndexOf(folder)); }

    /// The folder's row below those above it, each opened as the operator opens it, and opened
    /// again where it shows no more than a way.
    static QModelIndex IndexOf(const fs::path& folder)
    {
        QModelIndex index;
        for (const fs::path& name : folder) {
            Dir1().expand(index);
            QModelIndex inside = ShownIn(index, name);
            if (!inside.isValid()) {
                Dir1().collapse(index);
                Dir1().expand(index);
                inside = ShownIn(index, name);
            }
            if (!inside.isValid()) return {};
            index = inside;
        }
        return index;
    }

    static QModelIndex ShownIn(const QModelIndex& parent, const fs::path& name)
    {
        const auto found = Dir1().model()->match(Dir1().model()->index(0, 0, parent),
                                                 Qt::DisplayRole, PathToQString(name), 1,
                                                 Qt::MatchExactly | Qt::MatchCaseSensitive);
        return found.isEmpty() ? QModelIndex() : found.constFirst();
    }

    static int RowsIn(const QModelIndex& index) { return Dir1().model()->rowCount(index); }

    void ExpectNothingChosen() const
    {
        EXPECT_EQ(state.reportFolder, fs::path());
        EXPECT_FALSE(panel.downloadButton.Enabled());
    }

    const fs::path dati = folder / "dati";
    const fs::path home = folder / "home";

private:
    const QByteArray homeBefore_ = qgetenv("HOME");
};

} // namespace tarvex::tests
