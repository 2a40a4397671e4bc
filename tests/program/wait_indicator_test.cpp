#include "panel/paint_counter.h"
#include "panel/widgets/wait_ground.h"
#include "program/program_test.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <vector>

namespace tarvex::tests
{
namespace
{

using panel::WaitGround;

/// The real window during a real exchange.
class WaitIndicatorTest : public ProgramTest
{
protected:
    WaitGround& Ground() { return static_cast<WaitGround&>(*AtPanel().Find<QWidget>("Shape1")); }

    const ExchangeCount& Now() { return program->PanelModel().waitIndicator.progress.Now(); }
};

TEST_F(WaitIndicatorTest, IsPaintedAFewTimesASecondWhileTwoHundredPagesComeDown)
{
    Start({"--fill", "1:client=ROSSI,depth=100,step=0.5,guides=4"});
    std::filesystem::create_directory(folder / "reports");
    ChooseFolder(folder / "reports");
    int told = 0;
    Ground().OnChange([&] { ++told; });
    const PaintCounter counter(Ground());
    QElapsedTimer time;
    time.start();

    AtPanel().ShowTab(2);
    AtPanel().Click("command3d1");

    EXPECT_EQ(Now(), (ExchangeCount{210, 210}));
    EXPECT_GT(told, 210);
    const auto pauses = static_cast<int>(time.elapsed() / WaitGround::kMillisecondsBetweenPaints);
    EXPECT_LE(counter.paints, pauses + 3) << "and once as it comes, goes, and comes to its end";
    EXPECT_GE(counter.paints, 1);
}

TEST_F(WaitIndicatorTest, ShowsThatTheUnitWasSwitchedOffUntilThePanelIsClosed)
{
    Start({"--fault", "silent@page4+"});
    std::vector<ExchangeCount> seen;
    Ground().OnChange([&] {
        seen.push_back(Now());
        if (!Now().stalled) return;
        QTimer::singleShot(0, program->MainForm(), [this] { program->MainForm()->close(); });
    });

    AtPanel().Click("Command3");

    ASSERT_GE(seen.size(), 2U);
    EXPECT_EQ(seen[seen.size() - 2], (ExchangeCount{10, 3, true}));
    EXPECT_EQ(seen.back(), (ExchangeCount{10, 3, false})) << "nothing waits any more";
    EXPECT_TRUE(program->End().Ended());
    EXPECT_TRUE(Ground().isVisibleTo(program->MainForm()));
}

} // namespace
} // namespace tarvex::tests
