#include "panel/forms/forms_test.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QTimerEvent>
#include <QWindow>

namespace tarvex::tests
{

class Splash : public FormsTest
{
protected:
    Splash()
    {
        forms.ShowSplash([this] {
            splashWasGone = WindowsNamed("preloader").empty();
            ++nextShown;
        });
    }

    static QTimer& Timer1() { return Control<QTimer>("preloader", "Timer1"); }

    static void FireTimer()
    {
        QTimerEvent event(Timer1().timerId());
        QCoreApplication::sendEvent(&Timer1(), &event);
    }

    int nextShown = 0;
    bool splashWasGone = false;
};

TEST_F(Splash, ShowsVersionAndDescription)
{
    EXPECT_EQ(Control<QLabel>("preloader", "Label1").text().toStdString(), "1.1");
    EXPECT_EQ(Control<QLabel>("preloader", "Label2").text().toStdString(), "Tar Vex Manager 1.1");
    EXPECT_TRUE(Control<QWidget>("preloader", "Image1").isVisible());
}

TEST_F(Splash, HasNoTitleNorFrameAndIsNotModal)
{
    EXPECT_EQ(Window("preloader").windowTitle().toStdString(), "");
    EXPECT_EQ(Window("preloader").windowHandle()->title().toStdString(), " ")
        << "the toolkit names a window after the program when it has no title at all";
    EXPECT_TRUE(Window("preloader").windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_FALSE(Window("preloader").isModal());
}

TEST_F(Splash, IsInTheMiddleOfTheScreen)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_LE((Window("preloader").geometry().center() - screen.center()).manhattanLength(), 2);
}

TEST_F(Splash, RunsItsTimerFor2000MillisecondsFromTheLoadOn)
{
    EXPECT_TRUE(Timer1().isActive());
    EXPECT_EQ(Timer1().interval(), 2000);
    EXPECT_EQ(nextShown, 0);
}

TEST_F(Splash, GivesWayToTheMainFormOnTheTimerEvent)
{
    const QPointer<QWidget> splash = &Window("preloader");
    FireTimer();
    EXPECT_EQ(nextShown, 1);
    EXPECT_TRUE(splashWasGone);
    DeleteClosed();
    EXPECT_TRUE(splash.isNull());
}

TEST_F(Splash, StaysWhenItsTimerHasAnotherInterval)
{
    Timer1().setInterval(1999);
    FireTimer();
    EXPECT_EQ(nextShown, 0);
    EXPECT_TRUE(Window("preloader").isVisible());
}

TEST_F(Splash, IgnoresCloseRequestsAndEscape)
{
    EXPECT_FALSE(Window("preloader").close());
    QTest::keyClick(&Window("preloader"), Qt::Key_Escape);
    EXPECT_TRUE(Window("preloader").isVisible());
    FireTimer();
    EXPECT_EQ(nextShown, 1);
}

TEST_F(Splash, ShowsNothingOnceTheProgramHasEnded)
{
    end.End(0);
    FireTimer();
    EXPECT_EQ(nextShown, 0);
}

} // namespace tarvex::tests
