#include "survey/window/fit_screen.h"
#include "survey/window/window_test.h"

#include <QSignalSpy>
#include <QTest>

namespace tarvex::survey
{
namespace
{

class StartTest : public WindowTest
{
protected:
    void Show()
    {
        window_.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
        QTest::qWait(1); // what was put off until then
    }
};

TEST_F(StartTest, DrawsThePlotsOnce)
{
    const QSignalSpy drawn(&Plot(), &QCustomPlot::afterReplot);
    window_.Open({folder_.Path()});
    Show();
    EXPECT_EQ(drawn.count(), 1);
}

TEST_F(StartTest, DrawsThePlotsAnewForAnotherSurveyOnceTheyAreThere)
{
    window_.Open({folder_.Path()});
    Show();
    const QSignalSpy drawn(&Plot(), &QCustomPlot::afterReplot);
    window_.Open({tests::Download(folder_.Path(), "4:depth=20,spike=12.5")});
    QTest::qWait(1);
    EXPECT_EQ(drawn.count(), 1);
}

TEST_F(StartTest, MakesNoHintWhereSurveysAreOpen)
{
    window_.Open({folder_.Path()});
    Show();
    EXPECT_EQ(window_.findChild<QWidget*>(QStringLiteral("hint")), nullptr);
}

TEST_F(StartTest, HasItsUsualSizeWhereTheScreenHasRoom)
{
    window_.Open({folder_.Path()});
    Show();
    EXPECT_EQ(window_.size(), kUsualSize.boundedTo(FreeSize(window_)));
}

TEST_F(StartTest, KeepsTheSizeThatItWasGiven)
{
    window_.resize(700, 600);
    Show();
    EXPECT_EQ(window_.size(), QSize(700, 600));
}

} // namespace
} // namespace tarvex::survey
