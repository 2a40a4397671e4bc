#include "panel/forms/folder_chooser_test.h"
#include "support/ordinary_user.h"

#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <filesystem>

namespace tarvex::tests
{

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

} // namespace tarvex::tests
