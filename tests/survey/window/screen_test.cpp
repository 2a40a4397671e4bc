// Run once for each screen that CMakeLists.txt lists: nothing here depends on its size.
#include "survey/window/window_test.h"

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include <algorithm>

namespace tarvex::survey
{
namespace
{

/// The size of the texts that the desktop asks for, in percent of a usual one.
void AskForTexts()
{
    auto font = QApplication::font();
    font.setPointSizeF(11 * std::max(qEnvironmentVariableIntValue("SCREEN_TEST_TEXT"), 100) / 100.);
    QApplication::setFont(font);
}

struct Texts {
    Texts() { AskForTexts(); }
};

class SurveyScreen : public Texts, public WindowTest
{
protected:
    static QSize Free() { return QGuiApplication::primaryScreen()->availableSize(); }

    static void ExpectFits(const QWidget& window)
    {
        constexpr QSize kFrame(8, 36);
        EXPECT_LE(window.width() + kFrame.width(), Free().width());
        EXPECT_LE(window.height() + kFrame.height(), Free().height());
    }

    void Show()
    {
        window_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
    }

    /// So much of a control is within all that it is in.
    static QSize SeenOf(const QWidget& control)
    {
        QRect seen = control.rect();
        for (const auto* around = control.parentWidget(); around != nullptr && !seen.isEmpty();
             around = around->isWindow() ? nullptr : around->parentWidget())
            seen &= QRect(control.mapFrom(around, QPoint()), around->size());
        return seen.size();
    }
    QSize Seen(const char* name) { return SeenOf(Find<QWidget>(name)); }
};

TEST_F(SurveyScreen, IsTheOneThatIsAskedFor)
{
    EXPECT_EQ(QGuiApplication::primaryScreen()->size().width(),
              qRound(qEnvironmentVariableIntValue("SCREEN_TEST_WIDTH") /
                     qEnvironmentVariable("QT_SCALE_FACTOR").toDouble()));
}

TEST_F(SurveyScreen, HoldsTheEmptyWindow)
{
    Show();
    ExpectFits(window_);
    for (auto* const button : Find<QWidget>("hint").parentWidget()->findChildren<QPushButton*>()) {
        button->setFocus(Qt::TabFocusReason);
        EXPECT_GE(SeenOf(*button).width(), 40);
        EXPECT_GE(SeenOf(*button).height(), 20);
    }
}

TEST_F(SurveyScreen, HoldsTheWindowWithItsVerdictAlwaysInSight)
{
    window_.Open({folder_.Path(), tests::Download(folder_.Path(), "4:depth=20,spike=12.5")});
    Show();
    ExpectFits(window_);
    const int line = Find<QWidget>("verdict").fontMetrics().height();
    for (const char* name : {"tree", "kinds", "bases", "plot", "table"}) {
        Find<QWidget>(name).setFocus(Qt::TabFocusReason);
        QTest::qWait(1);
        EXPECT_GE(Seen("verdict").height(), line - 2) << name;
        EXPECT_GE(Seen("verdict").width(), 8 * line / 2) << name;
    }
    const auto& reasons = Find<QWidget>("reasons"); // on a narrow window the menu has them
    EXPECT_EQ(reasons.isVisible(),
              window_.width() >= 40 * window_.fontMetrics().averageCharWidth());
    EXPECT_TRUE(!reasons.isVisible() || SeenOf(reasons) == reasons.size());
}

TEST_F(SurveyScreen, ScrollsToEveryControlByTheTabKey)
{
    window_.Open({folder_.Path()});
    Show();
    for (const char* name : {"tree", "kinds", "bases", "plot", "table"}) {
        int steps = 0;
        while (!Find<QWidget>(name).hasFocus() && ++steps < 20)
            QTest::keyClick(window_.focusWidget() != nullptr ? window_.focusWidget() : &window_,
                            Qt::Key_Tab);
        EXPECT_TRUE(Find<QWidget>(name).hasFocus()) << name;
        EXPECT_GE(Seen(name).width(), 40) << name << " " << Find<QWidget>(name).width();
        EXPECT_GE(Seen(name).height(), 20) << name << " " << Find<QWidget>(name).height();
    }
}

TEST_F(SurveyScreen, HoldsTheReasons)
{
    window_.Open({folder_.Path()});
    Show();
    bool shown = false;
    QTimer::singleShot(0, &window_, [&] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        shown = QTest::qWaitForWindowExposed(dialog);
        ExpectFits(*dialog);
        dialog->reject();
    });
    Find<QPushButton>("reasons").click();
    EXPECT_TRUE(shown);
}

} // namespace
} // namespace tarvex::survey
