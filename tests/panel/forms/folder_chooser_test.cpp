#include "panel/forms/forms_test.h"
#include "platform/text/qt_text.h"
#include "support/ordinary_user.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <cerrno>
#include <filesystem>
#include <malloc.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace tarvex::tests
{

namespace fs = std::filesystem;

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

TEST_F(FolderChooser, MakesDatiAndSelectsIt)
{
    forms.ShowFolderChooser();
    EXPECT_TRUE(fs::is_directory(dati));
    EXPECT_EQ(ShownPath(), dati);
    EXPECT_EQ(Drive1().currentIndex(), 0);
    EXPECT_EQ(Window("Form6").windowTitle().toStdString(), "Folder");
    EXPECT_FALSE(Window("Form6").isModal());
    EXPECT_EQ(Ok().text().toStdString(), "Ok");
    EXPECT_TRUE(Ok().isEnabled());
    ExpectNothingChosen();
}

/// In the start folder of an older machine, whose names are no UTF-8.
TEST_F(FolderChooser, TakesFoldersWhoseNamesAreNoUnicode)
{
    const fs::path site = folder / "Citt\xE0";
    fs::create_directories(site / "dati" / "Pozzo\xF2");
    panel::SideForms oddForms{{state, panel, handlers, boxes, site}, dialogs, shell, folder / "b"};
    oddForms.ShowFolderChooser();
    EXPECT_EQ(Reason(), "");
    EXPECT_TRUE(Ok().isEnabled());
    EXPECT_EQ(ShownPath(), folder / "Citt\uFFFD/dati");

    GoTo(folder / "Citt\uFFFD/dati/Pozzo\uFFFD");
    EXPECT_EQ(Reason(), "");
    Press("Form6", "command3d1");

    EXPECT_EQ(state.reportFolder, site / "dati" / "Pozzo\xF2");
    EXPECT_TRUE(panel.downloadButton.Enabled());
    EXPECT_EQ(boxes.shown, 0);
}

/// The start folder is gone: the chooser begins at the next place instead of nowhere.
TEST_F(FolderChooser, WithoutAStartFolderSelectsTheFirstPlaceThatThereIs)
{
    panel::SideForms oddForms{{state, panel, handlers, boxes, {}}, dialogs, shell, folder / "bin"};
    const auto before = fs::current_path();
    fs::create_directory(folder / "gone");
    fs::current_path(folder / "gone");
    fs::remove(folder / "gone");
    oddForms.ShowFolderChooser();
    EXPECT_EQ(ShownPath(), home);
    EXPECT_EQ(Drive(), "Home");
    EXPECT_TRUE(Ok().isEnabled());
    EXPECT_EQ(boxes.shown, 0);
    fs::current_path(before);
}

TEST_F(FolderChooser, SelectsDatiThatIsThereWithoutAMessage)
{
    fs::create_directories(dati / "S12");
    forms.ShowFolderChooser();
    EXPECT_EQ(ShownPath(), dati);
    EXPECT_TRUE(fs::is_directory(dati / "S12"));
    EXPECT_EQ(boxes.shown, 0);
}

TEST_F(FolderChooser, SelectsTheStartFolderWhenDatiCannotBeMade)
{
    WriteFile(dati, "a file of that name");
    forms.ShowFolderChooser();
    EXPECT_EQ(ShownPath(), folder.Path());
    EXPECT_EQ(boxes.shown, 0);
}

TEST_F(FolderChooser, TakesTheFolderAndEnablesTheDownloadOnOk)
{
    fs::create_directories(dati / "S12");
    forms.ShowFolderChooser();
    GoTo(dati / "S12");
    const QPointer<QWidget> form = &Window("Form6");
    Press("Form6", "command3d1");
    EXPECT_EQ(state.reportFolder, dati / "S12");
    EXPECT_TRUE(panel.downloadButton.Enabled());
    EXPECT_TRUE(WindowsNamed("Form6").empty());
    DeleteClosed();
    EXPECT_TRUE(form.isNull());
}

TEST_F(FolderChooser, IsWorkedFromTheKeyboard)
{
    fs::create_directories(dati / "A");
    fs::create_directories(dati / "B");
    forms.ShowFolderChooser();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window("Form6")));
    EXPECT_EQ(QApplication::focusWidget(), &Dir1());
    ASSERT_TRUE(Comes([&] { return RowOf(dati / "A") == 0 && RowOf(dati / "B") == 1; }));
    QTest::keyClick(&Dir1(), Qt::Key_Down);
    QTest::keyClick(&Dir1(), Qt::Key_Down);
    EXPECT_EQ(ShownPath(), dati / "B");
    QTest::keyClick(&Dir1(), Qt::Key_Return);
    EXPECT_EQ(state.reportFolder, dati / "B");
}

TEST_F(FolderChooser, LeavesFolderAndButtonWhenClosedInAnotherWay)
{
    forms.ShowFolderChooser();
    Window("Form6").close();
    ExpectNothingChosen();

    forms.ShowFolderChooser();
    QTest::keyClick(&Window("Form6"), Qt::Key_Escape);
    EXPECT_TRUE(WindowsNamed("Form6").empty());
    ExpectNothingChosen();
}

TEST_F(FolderChooser, KeepsAFormerChoiceWhenClosedWithoutOk)
{
    forms.ShowFolderChooser();
    Press("Form6", "command3d1");
    forms.ShowFolderChooser();
    GoTo(home);
    Window("Form6").close();
    EXPECT_EQ(state.reportFolder, dati);
    EXPECT_TRUE(panel.downloadButton.Enabled());
}

TEST_F(FolderChooser, KeepsItsFolderWhenRaisedAndLoadsAgainWhenReopened)
{
    forms.ShowFolderChooser();
    GoTo(home);
    QWidget* open = &Window("Form6");
    forms.ShowFolderChooser();
    EXPECT_EQ(&Window("Form6"), open);
    EXPECT_EQ(ShownPath(), home);
    open->close();
    forms.ShowFolderChooser();
    EXPECT_EQ(ShownPath(), dati);
}

TEST_F(FolderChooser, TakesNamesOfAnyScriptAsTheyAre)
{
    const fs::path name = dati / "Скважина №7" / "試験孔 Ω" / "profondità";
    fs::create_directories(name);
    forms.ShowFolderChooser();
    GoTo(name);
    EXPECT_EQ(ShownPath(), name);
    Press("Form6", "command3d1");
    EXPECT_EQ(state.reportFolder.native(), name.native());
}

TEST_F(FolderChooser, ShowsAFolderThatCannotBeWrittenButDoesNotLetItBeChosen)
{
    fs::create_directories(folder / "archive");
    fs::permissions(folder / "archive", fs::perms::owner_write, fs::perm_options::remove);
    const OrdinaryUser user;
    forms.ShowFolderChooser();
    GoTo(folder / "archive");
    EXPECT_EQ(ShownPath(), folder / "archive");
    EXPECT_FALSE(Ok().isEnabled());
    EXPECT_FALSE(Control<QPushButton>("Form6", "NewFolder").isEnabled());
    EXPECT_EQ(Reason(), "Reports cannot be written in this folder.");
    QTest::keyClick(&Dir1(), Qt::Key_Return);
    EXPECT_TRUE(Window("Form6").isVisible());
    ExpectNothingChosen();
}

TEST_F(FolderChooser, OffersOkAgainOnAFolderThatCanBeWritten)
{
    forms.ShowFolderChooser();
    GoTo("/proc/self");
    EXPECT_FALSE(Ok().isEnabled());
    GoTo(dati);
    EXPECT_TRUE(Ok().isEnabled());
    EXPECT_EQ(Reason(), "");
}

TEST_F(FolderChooser, RefusesAFolderThatTakesNothingThoughItsRightsSaySo)
{
    forms.ShowFolderChooser();
    GoTo("/proc"); // nobody makes anything here, and the administrator seems to be allowed to
    QTest::keyClick(&Dir1(), Qt::Key_Return);
    EXPECT_TRUE(Window("Form6").isVisible());
    EXPECT_FALSE(Ok().isEnabled());
    EXPECT_EQ(Reason(), "Reports cannot be written in this folder.");
    ExpectNothingChosen();
}

TEST_F(FolderChooser, GoesToTheChosenDrive)
{
    forms.ShowFolderChooser();
    ASSERT_EQ(Drive1().itemText(1), "Home");
    QTest::keyClick(&Drive1(), Qt::Key_Down);
    EXPECT_EQ(ShownPath(), home);
    EXPECT_EQ(Drive(), "Home");
}

TEST_F(FolderChooser, LetsTheDriveFollowTheFolder)
{
    forms.ShowFolderChooser();
    GoTo(home);
    EXPECT_EQ(Drive(), "Home");
    GoTo("/");
    EXPECT_EQ(Drive(), "File system");
    EXPECT_EQ(ShownPath(), "/");
    GoTo(dati);
    EXPECT_EQ(Drive(), "Start folder");
}

TEST_F(FolderChooser, ReturnsToTheFirstDriveWhenTheChosenOneIsAway)
{
    forms.ShowFolderChooser();
    fs::remove(home);
    boxes.ExpectTitled("Errore", "Invalid Drive!");
    QTest::keyClick(&Drive1(), Qt::Key_Down);
    EXPECT_EQ(boxes.shown, 1);
    EXPECT_EQ(Drive1().currentIndex(), 0);
    EXPECT_EQ(ShownPath(), folder.Path());
}

TEST_F(FolderChooser, AsksOnceMoreAndEndsWhenTheFirstDriveIsAwayToo)
{
    fs::create_directory(folder / "start");
    panel::SideForms other({state, panel, handlers, boxes, folder / "start"}, dialogs, shell,
                           folder.Path());
    other.ShowFolderChooser();
    fs::remove_all(folder / "start");
    fs::remove(home);
    boxes.ExpectTitled("Errore", "Invalid Drive!");
    boxes.ExpectTitled("Errore", "Invalid Drive!");
    QTest::keyClick(&Drive1(), Qt::Key_Down);
    EXPECT_EQ(boxes.shown, 2);
    EXPECT_EQ(Drive1().currentIndex(), 0);
}

TEST_F(FolderChooser, OpensNoFileOfTheFoldersThatItShows)
{
    fs::create_directories(dati / "A");
    WriteFile(dati / "report", "of no known ending");
    const int watch = inotify_init1(IN_NONBLOCK);
    ASSERT_GE(inotify_add_watch(watch, (dati / "report").c_str(), IN_OPEN), 0);
    forms.ShowFolderChooser();
    EXPECT_TRUE(Comes([&] { return Dir1().model()->rowCount(Dir1().currentIndex()) == 1; }));
    inotify_event opened{};
    EXPECT_EQ(read(watch, &opened, sizeof opened), -1);
    EXPECT_EQ(errno, EAGAIN);
    close(watch);
}

TEST_F(FolderChooser, ShowsTheFolderInViewAmongManyNeighbours)
{
    constexpr int kNeighbours = 200;
    for (int number = 0; number < kNeighbours; ++number)
        fs::create_directory(folder / ("a" + std::to_string(number)));
    forms.ShowFolderChooser();
    const QPersistentModelIndex current = Dir1().currentIndex();
    EXPECT_TRUE(Comes([&] {
        return current.row() == kNeighbours &&
               Dir1().viewport()->rect().contains(Dir1().visualRect(current).center());
    })) << "row "
        << current.row() << " of " << Dir1().model()->rowCount(current.parent());
}

TEST_F(FolderChooser, ListsOfTheFoldersAboveOnlyTheWayUntilOneIsGoneTo)
{
    fs::create_directories(folder / "a" / "start");
    fs::create_directories(folder / "b");
    panel::SideForms other({state, panel, handlers, boxes, folder / "a" / "start"}, dialogs, shell,
                           folder.Path());
    other.ShowFolderChooser();
    const QPersistentModelIndex start = Dir1().currentIndex().parent();
    const QPersistentModelIndex above = start.parent().parent();
    EXPECT_EQ(RowsIn(start), 1);
    for (QModelIndex way = start.parent(); way.isValid(); way = way.parent())
        EXPECT_EQ(RowsIn(way), 1) << way.data().toString().toStdString();
    Dir1().setCurrentIndex(above);
    EXPECT_EQ(ShownPath(), folder.Path());
    EXPECT_EQ(RowsIn(above), 3); // a, b, and the home of these tests
    EXPECT_EQ(RowsIn(start.parent()), 1);
}

TEST_F(FolderChooser, ShowsWhatCameAndWentWhenAFolderIsOpenedAgain)
{
    for (const char* name : {"B", "D", "E", "H"})
        fs::create_directories(dati / name);
    forms.ShowFolderChooser();
    const QPersistentModelIndex here = Dir1().currentIndex();
    const QPersistentModelIndex stays = IndexOf(dati / "H");
    for (const char* name : {"D", "E"})
        fs::remove(dati / name);
    for (const char* name : {"A", "C", "F", "G", "I"})
        fs::create_directories(dati / name);
    Dir1().collapse(here);
    Dir1().expand(here);
    std::string names;
    for (int row = 0; row < RowsIn(here); ++row)
        names += here.model()->index(row, 0, here).data().toString().toStdString();
    EXPECT_EQ(names, "ABCFGHI");
    EXPECT_EQ(stays.data().toString().toStdString(), "H");
}

TEST_F(FolderChooser, TakesLittleMemoryForEachFolder)
{
    constexpr std::size_t kFolders = 2000;
    for (std::size_t number = 0; number < kFolders; ++number)
        fs::create_directories(dati / ("borehole " + std::to_string(number)));
    forms.ShowFolderChooser();
    const QModelIndex here = Dir1().currentIndex();
    Dir1().collapse(here);
    fs::rename(dati, folder / "full");
    fs::create_directory(dati);
    Dir1().expand(here);
    EXPECT_EQ(RowsIn(here), 0);
    Window("Form6").grab(); // what painting keeps is there from now on
    Dir1().collapse(here);
    fs::remove(dati);
    fs::rename(folder / "full", dati);
    const std::size_t before = mallinfo2().uordblks;
    Dir1().expand(here);
    Window("Form6").grab();
    EXPECT_EQ(RowsIn(here), static_cast<int>(kFolders));
    EXPECT_LT(mallinfo2().uordblks - before, kFolders * 400); // 20 MB for 50,000
}

TEST_F(FolderChooser, MakesANewFolderAndSelectsIt)
{
    forms.ShowFolderChooser();
    Press("Form6", "NewFolder");
    auto& question = Control<QInputDialog>("Form6", "NewFolderName");
    question.setTextValue("Foro Ω 3");
    question.accept();
    EXPECT_TRUE(fs::is_directory(dati / "Foro Ω 3"));
    EXPECT_EQ(ShownPath(), dati / "Foro Ω 3");
}

TEST_F(FolderChooser, CutsAPastedNameAtItsFirstLineEnd)
{
    QGuiApplication::clipboard()->setText("Foro 3\nVIA ROMA\n");
    forms.ShowFolderChooser();
    Press("Form6", "NewFolder");
    auto& question = Control<QInputDialog>("Form6", "NewFolderName");
    QTest::keyClick(question.findChild<QLineEdit*>(), Qt::Key_V, Qt::ControlModifier);
    question.accept();
    EXPECT_EQ(ShownPath(), dati / "Foro 3");
}

TEST_F(FolderChooser, TellsWhyANewFolderCannotBeMadeAndKeepsTheNameForCorrection)
{
    forms.ShowFolderChooser();
    fs::create_directory(dati / "S12");
    Press("Form6", "NewFolder");
    auto& question = Control<QInputDialog>("Form6", "NewFolderName");
    const std::string tooLong(300, 'x');
    const std::vector<std::pair<std::string, std::string>> refused = {
        {"S12", "There is a folder or a file of this name already."},
        {"../S13", "A folder cannot have this name"},
        {"..", "A folder cannot have this name"},
        {"/", "A folder cannot have this name"},
        {"", "The folder needs a name."},
        {tooLong, "The name is too long."}};
    for (const auto& [name, reason] : refused) {
        question.setTextValue(QString::fromStdString(name));
        question.accept();
        EXPECT_TRUE(question.isVisible()) << name;
        EXPECT_EQ(question.textValue().toStdString(), name);
        const std::string shown = question.labelText().toStdString();
        EXPECT_NE(shown.find("The new folder could not be made."), std::string::npos) << shown;
        EXPECT_NE(shown.find(reason), std::string::npos) << shown;
        EXPECT_EQ(ShownPath(), dati) << name;
    }
    EXPECT_FALSE(fs::exists(folder / "S13"));
    question.setTextValue("S14");
    question.accept();
    EXPECT_FALSE(question.isVisible());
    EXPECT_EQ(ShownPath(), dati / "S14");
}

TEST_F(FolderChooser, TellsThatNothingCanBeWrittenWhereTheNewFolderWouldLie)
{
    forms.ShowFolderChooser();
    Press("Form6", "NewFolder");
    auto& question = Control<QInputDialog>("Form6", "NewFolderName");
    question.setTextValue("S12");
    fs::permissions(dati, fs::perms::owner_write, fs::perm_options::remove);
    {
        const OrdinaryUser user;
        question.accept();
    }
    EXPECT_NE(question.labelText().toStdString().find("Nothing can be written"), std::string::npos)
        << question.labelText().toStdString();
}

} // namespace tarvex::tests
