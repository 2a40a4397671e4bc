#include "panel/window_test.h"

#include <QAction>
#include <QFocusEvent>
#include <QMenu>
#include <QMessageBox>
#include <QTabBar>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <ostream>
#include <utility>
#include <vector>

namespace tarvex::tests
{

namespace
{

constexpr const char* kWrongBlock = "Attention: Incorrect block number";
constexpr const char* kInvalidValue = "Attention: Invalid value";

enum class Event { Activation, Focus, Press, Release };

struct Order {
    const char* name;
    std::vector<Event> events;
};

std::ostream& operator<<(std::ostream& stream, const Order& order)
{
    return stream << order.name;
}

/// The operator types in a field and goes to another program.
class Away : public WindowTest
{
protected:
    void TypeAndGoAway(const std::string& field, const QString& text)
    {
        TypeInto(field, text);
        GoAway();
    }

    void GoAway()
    {
        other_.show();
        other_.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other_));
        ASSERT_FALSE(window->isActiveWindow());
    }

    /// A real modal box, under which the hand comes up from the control.
    void StandModalOverTheRelease(const QWidget& widget)
    {
        QMessageBox box(window.get());
        QTimer::singleShot(0, &box, [&] {
            Release(widget.mapTo(window.get(), widget.rect().center()));
            box.accept();
        });
        box.exec();
    }

    void Release(QPoint inWindow)
    {
        if (!std::exchange(isUp_, true))
            QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, {}, inWindow);
    }

    void Activate()
    {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    /// How often a command has opened the port.
    long Openings() const { return std::ranges::count(port.history, "open"); }

private:
    QWidget other_;
    bool isUp_ = false; // the hand, after its one press
};

/// The operator comes back by a click straight on a control. Each desktop has an order of its own
/// for the events of that click.
class ComingBack : public Away, public ::testing::WithParamInterface<Order>
{
protected:
    /// As by a press on a window that knows of its activation before its focus does: the control is
    /// notified of the focus, and the field that had it is not.
    static void FocusByMouse(QWidget& widget)
    {
        if (!widget.isEnabled()) return;
        widget.setFocus(Qt::MouseFocusReason);
        QFocusEvent focus(QEvent::FocusIn, Qt::MouseFocusReason);
        QCoreApplication::sendEvent(&widget, &focus);
    }

    void ClickInOrder(QWidget& widget, QPoint at)
    {
        const QPoint inWindow = widget.mapTo(window.get(), at);
        for (const Event event : GetParam().events) {
            if (event == Event::Activation) Activate();
            if (event == Event::Focus) FocusByMouse(widget);
            if (event == Event::Press)
                QTest::mousePress(window->windowHandle(), Qt::LeftButton, {}, inWindow);
            if (event == Event::Release) Release(inWindow);
        }
    }
    void ClickInOrder(const std::string& name)
    {
        QWidget& widget = Named(name);
        ClickInOrder(widget, widget.rect().center());
    }
};

TEST_P(ComingBack, RunsTheRuleBeforeTheCommandReadsTheBoxes)
{
    TypeAndGoAway("Text6", "12");
    boxes.ExpectQuestion(
        "ATTENTION: ALL BLOCKS MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?", false);
    ClickInOrder("Command6"); // Set Block stores the panel, then asks
    EXPECT_EQ(StoredHeader(1).profondità.View(), "0120");
    EXPECT_EQ(state.depthText, "0120");
}

TEST_P(ComingBack, RunsACommandOnceAfterTheOneBoxOfTheRule)
{
    TypeAndGoAway("Text2", "30");
    boxes.Expect(kWrongBlock, [this] { EXPECT_EQ(Openings(), 0); });
    ClickInOrder("Command3");
    EXPECT_EQ(Openings(), 1);
    EXPECT_EQ(port.sent.at(1), "a1D000\r");
    EXPECT_FALSE(Button("Command3").isDown());
    Activate();
    EXPECT_EQ(boxes.shown, 1);
    EXPECT_EQ(Openings(), 1);
}

TEST_P(ComingBack, RunsACommandOnceWhenTheBoxHasTakenTheRelease)
{
    TypeAndGoAway("Text2", "30");
    boxes.Expect(kWrongBlock, [this] { StandModalOverTheRelease(Button("Command3")); });
    ClickInOrder("Command3");
    EXPECT_EQ(Openings(), 1);
    EXPECT_FALSE(Button("Command3").isDown());
}

TEST_P(ComingBack, RunsTheRuleBeforeTheTabTurns)
{
    TypeAndGoAway("Text9", "+1");
    boxes.Expect(kInvalidValue, [this] { EXPECT_TRUE(panel.headerFrame.Visible()); });
    auto& strip = Named<QTabBar>("TabStrip1");
    ClickInOrder(strip, strip.tabRect(1).center());
    EXPECT_TRUE(panel.downloadFrame.Visible());
    EXPECT_EQ(panel.header[North].Text(), "+000");
}

TEST_P(ComingBack, RunsTheRuleOnceOnTheWayToAnotherField)
{
    TypeAndGoAway("Text7", "2");
    boxes.Expect(kInvalidValue);
    ClickInOrder("Text8");
    Activate();
    EXPECT_EQ(panel.header[Step].Text(), "0");
    EXPECT_EQ(Focused(), "Text8");
    EXPECT_EQ(Edit("Text8").selectedText(), "2");
    PressKey(Qt::Key_9); // over what is selected
    boxes.Expect(kInvalidValue);
    ClickOn("Command11");
    EXPECT_EQ(panel.header[Guides].Text(), "2");
    EXPECT_EQ(boxes.shown, 2);
}

TEST_P(ComingBack, LeavesTheOtherFieldBeforeADoubleClickToggles)
{
    TypeAndGoAway("Text6", "5");
    ClickInOrder("Text13");
    QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {},
                       Named("Text13").mapTo(window.get(), Named("Text13").rect().center()));
    EXPECT_EQ(panel.header[DepthMetres].Text(), "005");
    EXPECT_EQ(panel.header[DepthTenths].Text(), "5");
}

TEST_P(ComingBack, IntoTheFieldThatWasInWorkLeavesNothing)
{
    TypeAndGoAway("Text7", "2");
    ClickInOrder("Text7");
    Activate();
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_EQ(Focused(), "Text7");
    EXPECT_EQ(Edit("Text7").selectedText(), "");
    panel.header[Step].SetText("1");
}

TEST_P(ComingBack, ToADisabledButtonLeavesNothing)
{
    panel.readBlockButton.Disable();
    TypeAndGoAway("Text7", "2");
    ClickInOrder("Command3");
    Activate();
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_EQ(Focused(), "Text7");
    panel.header[Step].SetText("1");
}

INSTANTIATE_TEST_SUITE_P(
    EventOrders, ComingBack,
    ::testing::Values(Order{"ActivationFirst", {Event::Activation, Event::Press, Event::Release}},
                      Order{"PressFirst", {Event::Press, Event::Activation, Event::Release}},
                      Order{"ActivationLast", {Event::Press, Event::Release, Event::Activation}},
                      Order{"FocusFirst",
                            {Event::Focus, Event::Press, Event::Activation, Event::Release}},
                      Order{"NoActivation", {Event::Press, Event::Release}}),
    [](const auto& order) { return std::string(order.param.name); });

TEST_F(Away, AnAssistiveToolsPressRunsTheRuleFirst)
{
    TypeAndGoAway("Text2", "30");
    boxes.Expect(kWrongBlock, [this] { EXPECT_EQ(Openings(), 0); });
    Button("Command3").click();
    EXPECT_EQ(Openings(), 1);
    Activate();
    EXPECT_EQ(boxes.shown, 1);
}

TEST_F(Away, AnEntryOfTheServiceListRunsTheRuleFirst)
{
    TypeAndGoAway("Text7", "2");
    boxes.Expect(kInvalidValue, [this] { EXPECT_TRUE(forms.opened.empty()); });
    auto& list = Named<QMenu>("ServiceList");
    for (QAction* action : list.actions())
        if (action->text() == "Set Clock") action->trigger();
    EXPECT_EQ(forms.opened, std::vector<std::string>{"clock dialog"});
}

TEST_F(Away, TheWheelOnTheTabsRunsTheRuleFirst)
{
    TypeAndGoAway("Text7", "2");
    boxes.Expect(kInvalidValue, [this] { EXPECT_TRUE(panel.headerFrame.Visible()); });
    Named<QTabBar>("TabStrip1").setCurrentIndex(1);
    EXPECT_TRUE(panel.downloadFrame.Visible());
}

TEST_F(Away, TheProgramsMoveOfTheFocusRunsTheRuleWithTheActivation)
{
    TypeAndGoAway("Text7", "2");
    Enter("Text8");
    boxes.Expect(kInvalidValue);
    Activate();
    EXPECT_EQ(panel.header[Step].Text(), "0");
}

TEST_F(Away, KeysThatReachAFieldBringItIntoWork)
{
    GoAway(); // where there is no window manager, keys go to the window under the pointer
    Enter("Text7");
    Edit("Text7").selectAll();
    QTest::keyClicks(&Edit("Text7"), "2");
    boxes.Expect(kInvalidValue);
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                      Named("Command11").mapTo(window.get(), Named("Command11").rect().center()));
    EXPECT_EQ(panel.header[Step].Text(), "0");
    EXPECT_EQ(forms.opened, std::vector<std::string>{"about"});
}

} // namespace

} // namespace tarvex::tests
