#include "panel/forms/forms_test.h"

#include "panel/forms/credits.h"

#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <utility>

namespace tarvex::tests
{

class About : public FormsTest
{
protected:
    About() { forms.ShowAbout(); }

    /// Caption and text of every row that holds some, from the top.
    static std::vector<std::pair<std::string, std::string>> Rows()
    {
        const auto* grid = Window("aboutus").findChild<QGridLayout*>();
        std::vector<std::pair<std::string, std::string>> rows;
        for (int line = 0; line < grid->rowCount(); ++line) {
            if (grid->itemAtPosition(line, 0) == nullptr) continue;
            rows.emplace_back(TextAt(*grid, line, 0), TextAt(*grid, line, 1));
        }
        return rows;
    }

private:
    static std::string TextAt(const QGridLayout& grid, int line, int column)
    {
        return qobject_cast<QLabel*>(grid.itemAtPosition(line, column)->widget())
            ->text()
            .toStdString();
    }
};

TEST_F(About, NamesTheProgramAndItsMaker)
{
    const std::vector<std::pair<std::string, std::string>> expected{
        {"Application :", "Tar Vex Manager "},
        {"Version :", "1.1"},
        {"Description :", "Software di comunicazione concentralina inclinometrica Tar Vex"},
        {"Software :", std::string(panel::kMakerName)},
        {"Address :", std::string(panel::kMakerAddress)},
        {"Telephone :", std::string(panel::kMakerTelephone)},
        {"Fax :", std::string(panel::kMakerFax)},
        {"Hot-line :", std::string(panel::kMakerHotLine)}};
    EXPECT_EQ(Rows(), expected);
    EXPECT_EQ(Window("aboutus").windowTitle().toStdString(), "About");
    EXPECT_TRUE(Control<QWidget>("aboutus", "Image1").isVisible());
    EXPECT_EQ(Control<QPushButton>("aboutus", "btnclose").text().toStdString(), "&Close");
}

TEST_F(About, LeavesTheOtherWindowsUsable)
{
    EXPECT_FALSE(Window("aboutus").isModal());
}

TEST_F(About, IsRaisedWhenItIsOpenAlready)
{
    QWidget* first = &Window("aboutus");
    forms.ShowFolderChooser();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window("Form6")));
    forms.ShowAbout();
    EXPECT_EQ(&Window("aboutus"), first);
    EXPECT_TRUE(QTest::qWaitForWindowActive(first));
}

TEST_F(About, ComesBackWhenItIsMinimised)
{
    Window("aboutus").showMinimized();
    forms.ShowAbout();
    EXPECT_FALSE(Window("aboutus").isMinimized());
}

TEST_F(About, IsUnloadedByItsButton)
{
    const QPointer<QWidget> about = &Window("aboutus");
    Press("aboutus", "btnclose");
    EXPECT_TRUE(WindowsNamed("aboutus").empty());
    DeleteClosed();
    EXPECT_TRUE(about.isNull());
}

TEST_F(About, IsUnloadedByEscapeAndByTheWindowsOwnClose)
{
    const QPointer<QWidget> first = &Window("aboutus");
    QTest::keyClick(first, Qt::Key_Escape);
    DeleteClosed();
    EXPECT_TRUE(first.isNull());

    forms.ShowAbout();
    const QPointer<QWidget> second = &Window("aboutus");
    second->close();
    DeleteClosed();
    EXPECT_TRUE(second.isNull());
}

TEST_F(About, IsLoadedAgainAlsoWhileTheClosedOneStillLives)
{
    const QPointer<QWidget> closed = &Window("aboutus");
    Press("aboutus", "btnclose");
    forms.ShowAbout();
    ASSERT_FALSE(closed.isNull());
    EXPECT_NE(&Window("aboutus"), closed.data());
    DeleteClosed();
    EXPECT_TRUE(Window("aboutus").isVisible());
}

TEST_F(About, IsDressedOnceALoad)
{
    std::vector<QString> dressed;
    forms.Dress([&](QWidget& form) { dressed.push_back(form.objectName()); });
    forms.ShowAbout();
    EXPECT_TRUE(dressed.empty());
    Press("aboutus", "btnclose");
    forms.ShowAbout();
    forms.ShowFolderChooser();
    forms.ShowSplash([] {});
    EXPECT_EQ(dressed, (std::vector<QString>{"aboutus", "Form6", "preloader"}));
}

TEST_F(About, GoesWithTheMainFormBelowIt)
{
    Press("aboutus", "btnclose");
    QPointer<QWidget> about;
    {
        QWidget mainForm;
        forms.StandAbove(&mainForm);
        forms.ShowAbout();
        about = &Window("aboutus");
        EXPECT_EQ(about->parentWidget(), &mainForm);
    }
    EXPECT_TRUE(about.isNull());
    forms.ShowAbout();
    EXPECT_EQ(Window("aboutus").parentWidget(), nullptr);
}

} // namespace tarvex::tests
