#include "core/failure.h"
#include "platform/qt_file_dialog.h"
#include "support/temporary_folder.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDirIterator>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

namespace tarvex::tests
{
namespace
{

using ::testing::UnorderedElementsAre;

/// Each test plans what the operator does when the dialog is open.
class FileDialogs : public ::testing::Test
{
protected:
    FileDialogs()
    {
        dialog.filter = " FILE (*.*)|*.*|";
        dialog.filterIndex = 1;
        dialog.initDir = folder.Path();
        WriteFile(folder / "intestazione", "a header file");
    }

    void WhenShown(const std::function<void(QFileDialog&)>& act)
    {
        QTimer::singleShot(0, qApp, [this, act] {
            auto* const shown = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(shown, nullptr) << "no dialog is open";
            ++seen;
            act(*shown);
        });
    }

    static QComboBox& Kinds(QFileDialog& shown)
    {
        return *shown.findChild<QComboBox*>("fileTypeCombo");
    }

    /// Types the name of a file and presses Enter; true when a question came, which is refused.
    static bool AsksWhenGiven(QFileDialog& shown, const QString& name)
    {
        bool asked = false;
        QTimer::singleShot(0, qApp, [&] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            asked = box != nullptr;
            if (asked) QTest::keyClick(box, Qt::Key_Escape);
        });
        auto* const edit = shown.findChild<QLineEdit*>("fileNameEdit");
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
        QCoreApplication::processEvents();
        if (asked) shown.reject();
        return asked;
    }

    static QStringList FilesAtHome()
    {
        QStringList files;
        QDirIterator entry(QDir::homePath(), QDir::Files | QDir::Hidden | QDir::System,
                           QDirIterator::Subdirectories);
        while (entry.hasNext())
            files << entry.next();
        return files;
    }

    TemporaryFolder folder;
    ProgramEnd end;
    platform::QtFileDialog dialog{end};
    int seen = 0;
};

TEST_F(FileDialogs, ShowTheFilterAsItIsAndEveryFile)
{
    WriteFile(folder / "tubo.dat", "another");
    WhenShown([&](QFileDialog& shown) {
        EXPECT_EQ(Kinds(shown).count(), 1);
        EXPECT_EQ(Kinds(shown).currentText().toStdString(), " FILE (*.*)");
        const auto* const list = shown.findChild<QAbstractItemView*>("listView");
        const auto names = [&] {
            std::vector<std::string> all;
            const QAbstractItemModel& model = *list->model();
            for (int row = 0; row < model.rowCount(list->rootIndex()); ++row)
                all.push_back(
                    model.index(row, 0, list->rootIndex()).data().toString().toStdString());
            return all;
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return names().size() == 2; }, 30'000));
        EXPECT_THAT(names(), UnorderedElementsAre("intestazione", "tubo.dat"));
        shown.reject();
    });
    dialog.ShowOpen("Open header file");
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(dialog.fileName, "");
}

TEST_F(FileDialogs, SayInTheirTitlesWhatTheyAreFor)
{
    for (const char* title : {"Open header file", "New default header file"}) {
        WhenShown([&](QFileDialog& shown) {
            EXPECT_EQ(shown.windowTitle().toStdString(), title);
            shown.reject();
        });
        if (title == std::string("Open header file"))
            dialog.ShowOpen(title);
        else
            dialog.ShowSave(title, FileDialog::Fate::Overwritten);
    }
    EXPECT_EQ(seen, 2);
}

TEST_F(FileDialogs, AskBeforeAFileIsOverwritten)
{
    WhenShown([&](QFileDialog& shown) { EXPECT_TRUE(AsksWhenGiven(shown, "intestazione")); });
    dialog.ShowSave("New default header file", FileDialog::Fate::Overwritten);
    EXPECT_EQ(dialog.fileName, "");
}

TEST_F(FileDialogs, AskNothingAboutAFileThatIsLeftAlone)
{
    WhenShown([&](QFileDialog& shown) { EXPECT_FALSE(AsksWhenGiven(shown, "intestazione")); });
    dialog.ShowSave("Folder of the reports", FileDialog::Fate::LeftAlone);
    EXPECT_EQ(dialog.fileName, folder / "intestazione");
}

TEST_F(FileDialogs, LeaveNothingInTheOperatorsHome)
{
    WhenShown([&](QFileDialog& shown) { AsksWhenGiven(shown, "intestazione"); });
    dialog.ShowOpen("Open header file");
    EXPECT_EQ(dialog.fileName, folder / "intestazione");
    EXPECT_EQ(FilesAtHome(), QStringList());
}

} // namespace
} // namespace tarvex::tests
