#include "panel/forms/folder_chooser_test.h"

#include <QApplication>
#include <QComboBox>
#include <QPointer>
#include <QTest>

#include <filesystem>

namespace tarvex::tests
{

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

} // namespace tarvex::tests
