#include "panel/window_test.h"

#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QTabBar>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace tarvex::tests
{

namespace
{

constexpr const char* kWrongBlock = "Attention: Incorrect block number";
constexpr const char* kInvalidValue = "Attention: Invalid value";

class Leaving : public WindowTest
{
protected:
    /// How often a command has opened the port.
    long Openings() const { return std::ranges::count(port.history, "open"); }

    /// A real modal box that the operator answers after `meanwhile`, while the planned one is open.
    void StandModal(const std::function<void()>& meanwhile) const
    {
        QMessageBox box(window.get());
        QTimer::singleShot(0, &box, [&] {
            meanwhile();
            box.accept();
        });
        box.exec();
        window->activateWindow(); // as a desktop does when a box has gone
    }

    QPoint InWindow(const QWidget& widget) const
    {
        return widget.mapTo(window.get(), widget.rect().center());
    }

    // As from the desktop: through the window, so that a modal box takes what is not for it.
    void PressAt(const QWidget& widget) const
    {
        QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, InWindow(widget));
    }
    void ReleaseAt(const QWidget& widget) const
    {
        QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, InWindow(widget));
    }
};

TEST_F(Leaving, ByTabRunsTheRule)
{
    TypeInto("Text6", "5");
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(Focused(), "Text13");
    EXPECT_EQ(Edit("Text6").text(), "005");
    EXPECT_EQ(state.depthText, "0050");
}

TEST_F(Leaving, MarksTheFieldThatABoxSpeaksOfWhileItIsShown)
{
    TypeInto("Text7", "7");
    boxes.Expect(kInvalidValue, [this] {
        EXPECT_TRUE(Edit("Text7").property(kSpokenOf).toBool());
        EXPECT_FALSE(Edit("Text8").property(kSpokenOf).toBool());
    });
    PressKey(Qt::Key_Tab);
    EXPECT_FALSE(Edit("Text7").property(kSpokenOf).toBool());
}

TEST_F(Leaving, ByBacktabRunsTheRule)
{
    TypeInto("Text5", "t1");
    PressKey(Qt::Key_Backtab);
    EXPECT_EQ(Focused(), "Text4");
    EXPECT_EQ(Edit("Text5").text(), "T1  ");
}

TEST_F(Leaving, ByAClickOnAnotherBoxRunsTheRuleAndSelectsThere)
{
    TypeInto("Text7", "2");
    boxes.Expect(kInvalidValue);
    ClickOn("Text8");
    EXPECT_EQ(Edit("Text7").text(), "0");
    EXPECT_EQ(Focused(), "Text8");
    EXPECT_EQ(Edit("Text8").selectedText(), "2");
}

TEST_F(Leaving, ByTheProgramRunsTheRule)
{
    TypeInto("Text10", "7");
    Enter("Text9");
    EXPECT_EQ(panel.header[Readout].Text(), "07");
}

TEST_F(Leaving, ByATabRunsTheRuleAndTurnsTheTab)
{
    TypeInto("Text9", "+1");
    boxes.Expect(kInvalidValue);
    ClickTab(2);
    EXPECT_EQ(panel.header[North].Text(), "+000");
    EXPECT_TRUE(panel.downloadFrame.Visible());
    EXPECT_EQ(Focused(), "TabStrip1");
}

TEST_F(Leaving, IsNotEnter)
{
    TypeInto("Text7", "2");
    PressKey(Qt::Key_Return);
    PressKey(Qt::Key_Enter);
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_EQ(Focused(), "Text7");
    EXPECT_TRUE(port.history.empty());
    panel.header[Step].SetText("0");
}

TEST_F(Leaving, IsNotAChangeByTheProgram)
{
    Enter("Text7");
    panel.header[Step].SetText("9");
    EXPECT_EQ(boxes.shown, 0);
    panel.header[Step].SetText("1");
}

TEST_F(Leaving, IsNotAnotherWindowNorAMenu)
{
    TypeInto("Text7", "2");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(boxes.shown, 0);
    other.close();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_EQ(Focused(), "Text7");

    QMenu menu;
    menu.addAction("x");
    menu.popup(window->mapToGlobal(QPoint(5, 5)));
    menu.close();
    EXPECT_EQ(boxes.shown, 0);
    panel.header[Step].SetText("1");
}

TEST_F(Leaving, ComingBackFromAnotherWindowKeepsTheCursor)
{
    TypeInto("Text4", "abc");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_EQ(Edit("Text4").selectedText(), "");
}

TEST_F(Leaving, HasRunBeforeTheClickedCommandReadsTheBoxes)
{
    TypeInto("Text5", "t9");
    boxes.ExpectQuestion(
        "ATTENTION: ALL BLOCKS MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?", false);
    ClickOn("Command6"); // Set Block stores the panel, then asks
    EXPECT_EQ(StoredHeader(1).tubo.View(), "T9  ");
}

TEST_F(Leaving, ACommandWhoseClickBroughtABoxRunsOnceAfterIt)
{
    TypeInto("Text2", "30");
    boxes.Expect(kWrongBlock, [this] { EXPECT_EQ(Openings(), 0); });
    ClickOn("Command3");
    EXPECT_EQ(Openings(), 1);
    EXPECT_EQ(port.sent.at(1), "a1D000\r");
    EXPECT_FALSE(Button("Command3").isDown());
}

TEST_F(Leaving, AClickWhoseReleaseTheBoxTookStillCountsOnce)
{
    TypeInto("Text2", "30");
    QAbstractButton& button = Button("Command3");
    boxes.Expect(kWrongBlock, [&] { StandModal([&] { ReleaseAt(button); }); });
    PressAt(button);
    EXPECT_EQ(Openings(), 1);
    EXPECT_FALSE(button.isDown());
    ReleaseAt(button);
    EXPECT_EQ(Openings(), 1);
}

TEST_F(Leaving, AButtonStillHeldAfterTheBoxRunsOnceToo)
{
    TypeInto("Text2", "30");
    QAbstractButton& button = Button("Command3");
    boxes.Expect(kWrongBlock, [&] { StandModal([] {}); });
    PressAt(button);
    ReleaseAt(button);
    EXPECT_EQ(Openings(), 1);
    EXPECT_FALSE(button.isDown());
}

TEST_F(Leaving, AnOptionWhoseReleaseTheBoxTookIsChosen)
{
    ClickTab(2);
    TypeInto("numblocco", "99");
    panel.setupFrame.Show(); // beside it, to be hit
    panel.downloadFrame.Show();
    QAbstractButton& option = Button("ssOption1_2");
    Named("Frame3").raise();
    boxes.Expect(kWrongBlock, [&] { StandModal([&] { ReleaseAt(option); }); });
    PressAt(option);
    EXPECT_EQ(state.comPortNumber, 3);
    EXPECT_TRUE(option.isChecked());
}

TEST_F(Leaving, ABoxOnTheWayToAFieldIsForgottenBeforeTheNextClick)
{
    TypeInto("Text7", "2");
    QLineEdit& next = Edit("Text8");
    boxes.Expect(kInvalidValue, [&] { StandModal([&] { ReleaseAt(next); }); });
    PressAt(next);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_EQ(Focused(), "Text8");
    EXPECT_EQ(next.selectedText(), "2");
    PressAt(Button("Command3"));
    EXPECT_EQ(Openings(), 0);
    ReleaseAt(Button("Command3"));
    EXPECT_EQ(Openings(), 1);
}

TEST_F(Leaving, APressDraggedOffTheButtonRunsNothing)
{
    TypeInto("Text5", "t");
    PressAt(Button("Command3"));
    EXPECT_EQ(panel.header[Tube].Text(), "T   ");
    QTest::mouseMove(window->windowHandle(), InWindow(Named("HeadingFrame1")));
    ReleaseAt(Named("HeadingFrame1"));
    EXPECT_EQ(Openings(), 0);
}

TEST_F(Leaving, AShortcutOfAButtonRunsTheRuleFirst)
{
    QAbstractButton& button = Button("Command3");
    button.setShortcut(QKeySequence("Alt+R"));
    TypeInto("Text2", "30");
    boxes.Expect(kWrongBlock, [this] { EXPECT_EQ(Openings(), 0); });
    PressKey(Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Openings() == 1; }));
    EXPECT_EQ(Focused(), "Command3");
}

TEST_F(Leaving, AnAssistiveToolsPressRunsTheRuleFirst)
{
    TypeInto("Text2", "30");
    boxes.Expect(kWrongBlock, [this] { EXPECT_EQ(Openings(), 0); });
    Button("Command3").click();
    EXPECT_EQ(Openings(), 1);
}

TEST_F(Leaving, ADisabledButtonTakesNeitherFocusNorClick)
{
    panel.readBlockButton.Disable();
    TypeInto("Text7", "2");
    ClickOn("Command3");
    EXPECT_EQ(Focused(), "Text7");
    EXPECT_EQ(boxes.shown, 0);
    panel.header[Step].SetText("1");
}

TEST_F(Leaving, TheWheelOnTheTabsLeavesTheFieldFirst)
{
    TypeInto("Text7", "2");
    boxes.Expect(kInvalidValue, [this] { EXPECT_TRUE(panel.headerFrame.Visible()); });
    Named<QTabBar>("TabStrip1").setCurrentIndex(1);
    EXPECT_TRUE(panel.downloadFrame.Visible());
}

TEST_F(Leaving, EveryButtonAndTheTabStripTakeTheFocusByClickAndKey)
{
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
        if (button->objectName().isEmpty() || button->parent()->inherits("QTabBar")) continue;
        EXPECT_EQ(button->focusPolicy(), Qt::StrongFocus) << button->objectName().toStdString();
    }
    EXPECT_EQ(Named("TabStrip1").focusPolicy(), Qt::StrongFocus);
}

} // namespace

} // namespace tarvex::tests
