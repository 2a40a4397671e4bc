#include "panel/window_test.h"

#include <QApplication>
#include <QMenu>

namespace tarvex::tests
{

using namespace panel;

namespace
{

class ServiceListTest : public WindowTest
{
protected:
    QMenu& OpenList()
    {
        PressKey(Qt::Key_F12, Qt::ControlModifier);
        return *window->findChild<QMenu*>("ServiceList");
    }

    void Choose(const char* text)
    {
        QMenu& list = OpenList();
        for (QAction* action : list.actions())
            if (action->text() == text)
                QTest::mouseClick(&list, Qt::LeftButton, {}, list.actionGeometry(action).center());
    }
};

TEST_F(ServiceListTest, OpensAtItsKeyAndMovesNothing)
{
    const QMenu& list = OpenList();
    ASSERT_TRUE(list.isVisible());
    std::vector<std::string> entries;
    for (const QAction* action : list.actions()) {
        if (action->isSeparator()) continue;
        entries.push_back(action->text().toStdString());
    }
    EXPECT_EQ(entries, (std::vector<std::string>{"Database Tar Vex", "File", "Default", "Cartella",
                                                 "Start Clock", "Serial port RS232", "Set Clock",
                                                 "Delay for Automatic Cycle"}));
    for (const char* hidden : {"Command9", "sscommand1", "sscommand5", "command3d3", "ssCommand2"})
        EXPECT_TRUE(Named(hidden).isHidden()) << hidden;
}

TEST_F(ServiceListTest, RunsTheHandlersOfTheHiddenButtons)
{
    boxes.ExpectQuestion("ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?", true);
    Choose("Start Clock");
    EXPECT_EQ(port.sent.back(), "c\r");

    Choose("Cartella");
    EXPECT_EQ(fileDialog.shown, std::vector<std::string>{"save"});
    EXPECT_TRUE(Button("command3d1").isEnabled());

    fileDialog.choice = folder / "other";
    Choose("Default");
    EXPECT_EQ(std::filesystem::file_size(folder / "other"), 2310U);
    EXPECT_FALSE(Button("sscommand9").isEnabled());

    Choose("File");
    EXPECT_EQ(fileDialog.initDir, folder / "dati");
    EXPECT_TRUE(Button("sscommand9").isEnabled());
    EXPECT_EQ(Edit("Text3").text(), "CLIENT0 ");
}

TEST_F(ServiceListTest, LeavesTheFieldInWorkBeforeItsCommandRuns)
{
    TypeInto("Text5", "t");
    const QMenu& list = OpenList();
    EXPECT_EQ(panel.header[Tube].Text(), "t") << "opening a menu leaves no field";
    EXPECT_TRUE(list.isVisible());
    Choose("Cartella");
    EXPECT_EQ(panel.header[Tube].Text(), "T   ");
}

} // namespace

} // namespace tarvex::tests
