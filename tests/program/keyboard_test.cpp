#include "panel/rendered.h"
#include "program/program_test.h"
#include "program/windows.h"

#include <QAbstractButton>
#include <QApplication>
#include <QRadioButton>
#include <QTabBar>
#include <QToolTip>
#include <QtTest>

namespace tarvex::tests
{
namespace
{

/// Buttons whose click writes nothing, neither to the unit nor to a file.
const QStringList kHarmless = {"btnclose", "Command2"};

/// Each window of the program in turn, brought up with the mouse and without a unit.
class EveryWindow : public ProgramTest, public ::testing::WithParamInterface<ProgramWindow>
{
protected:
    void SetUp() override
    {
        StartAlone();
        GetParam().open(AtPanel());
        window = ShownForm(GetParam().name);
        ASSERT_TRUE(WaitFor([this] { return QApplication::activeWindow() == window; }));
    }

    bool IsMain() const { return window == program->MainForm(); }

    /// The controls of that kind that the operator can reach, on every tab.
    template <class Act>
    void ForEachControl(const Act& act)
    {
        auto* tabs = window->findChild<QTabBar*>("TabStrip1");
        for (int tab = 0; tab < (tabs == nullptr ? 1 : tabs->count()); ++tab) {
            if (tabs != nullptr) tabs->setCurrentIndex(tab);
            for (auto* control : window->findChildren<QWidget*>())
                if (IsReached(*control)) act(*control);
        }
    }

    /// From now on a click of any button only counts.
    void OnlyCountClicks()
    {
        for (auto* button : window->findChildren<QAbstractButton*>()) {
            QObject::disconnect(button, &QAbstractButton::clicked, nullptr, nullptr);
            QObject::connect(button, &QAbstractButton::clicked, window,
                             [this, button] { clicked << button->objectName(); });
        }
    }

    QStringList TakeClicked() { return std::exchange(clicked, {}); }

    QWidget* window = nullptr;
    QStringList clicked;

private:
    static bool IsReached(const QWidget& control)
    {
        return control.isVisible() && control.isEnabled() &&
               (control.focusPolicy() & Qt::TabFocus) == Qt::TabFocus &&
               control.focusProxy() == nullptr;
    }
};

void SendKey(QWidget& to, Qt::Key key, bool held = false)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), held);
    QCoreApplication::sendEvent(&to, &press);
}

TEST_P(EveryWindow, MarksItsFocusWhenItOpens)
{
    const QWidget* focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr);
    ASSERT_EQ(focused->window(), window);
    EXPECT_EQ(SidesWithoutMark(*window, *focused), "") << focused->objectName().toStdString();
}

TEST_P(EveryWindow, OpensWithTheFocusOnNothingThatWrites)
{
    const QWidget* focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr);
    const bool button = qobject_cast<const QAbstractButton*>(focused) != nullptr &&
                        qobject_cast<const QRadioButton*>(focused) == nullptr;
    EXPECT_TRUE(!button || kHarmless.contains(focused->objectName()))
        << focused->objectName().toStdString();
}

TEST_P(EveryWindow, ReturnPressesTheButtonThatHasTheFocusOnceHoweverLongItIsHeld)
{
    OnlyCountClicks();
    int buttons = 0;
    ForEachControl([&](QWidget& control) {
        if (qobject_cast<QAbstractButton*>(&control) == nullptr) return;
        ++buttons;
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            control.setFocus();
            ASSERT_EQ(QApplication::focusWidget(), &control);
            SendKey(control, key);
            for (int repeat = 0; repeat < 5; ++repeat)
                SendKey(*QApplication::focusWidget(), key, true);
            EXPECT_EQ(TakeClicked(), QStringList(control.objectName()));
        }
    });
    EXPECT_TRUE(buttons > 0 || window->objectName() == "Form5");
}

TEST_P(EveryWindow, NoKeyPressesAButtonThatIsNotMarked)
{
    OnlyCountClicks();
    // A window with nothing to write may be closed or confirmed from anywhere.
    const QStringList confirmed = {"btnclose", "command3d1"};
    const bool confirms = window->inherits("QDialog");
    ForEachControl([&](QWidget& control) {
        if (qobject_cast<QAbstractButton*>(&control) != nullptr) return;
        control.setFocus();
        for (int key = Qt::Key_Space; key <= Qt::Key_Z; ++key)
            for (const auto modifier : {Qt::NoModifier, Qt::ControlModifier, Qt::AltModifier})
                QTest::keyClick(&control, static_cast<Qt::Key>(key), modifier);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Select, Qt::Key_F2,
                                  Qt::Key_F5, Qt::Key_F10, Qt::Key_Insert, Qt::Key_Menu})
            QTest::keyClick(&control, key, Qt::NoModifier);
        for (const QString& name : TakeClicked())
            EXPECT_TRUE(confirms && confirmed.contains(name))
                << name.toStdString() << " from " << control.objectName().toStdString();
    });
    for (const QString& text : boxes.texts) // the rules of the fields, on what was typed
        EXPECT_TRUE(text.startsWith("Attention: In")) << text.toStdString();
}

TEST_P(EveryWindow, EscapeClosesASideWindowAndNeverTheMainForm)
{
    const QPointer<QWidget> open = window;
    SendKey(*QApplication::focusWidget(), Qt::Key_Escape, true);
    EXPECT_TRUE(open && open->isVisible()) << "a key held down from elsewhere";

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);

    EXPECT_EQ(open && open->isVisible(), IsMain());
    EXPECT_FALSE(program->End().Ended());
}

TEST_P(EveryWindow, AsksForHelpByF1)
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    EXPECT_TRUE(QToolTip::isVisible());
    EXPECT_EQ(QToolTip::text(), "The manual is not installed.");
    QToolTip::hideText();
    EXPECT_TRUE(window->isVisible());
}

INSTANTIATE_TEST_SUITE_P(Keyboard, EveryWindow, ::testing::ValuesIn(ProgramWindows()),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
} // namespace tarvex::tests
