#include "panel/widgets/announcement.h"
#include "panel/widgets/paint_pause.h"
#include "panel/window_test.h"

#include <string>
#include <string_view>

namespace tarvex::tests
{
namespace
{

using panel::PaintPause;

class WaitAnnouncements : public WindowTest
{
protected:
    std::string Words() const { return panel::Announcement::Of(*window)->Words().toStdString(); }

    /// An operation begins as they all do.
    void Begin()
    {
        panel.waitIndicator.Show();
        progress.Begin(10);
    }

    /// And ends so.
    void End()
    {
        panel.waitIndicator.Hide();
        progress.End();
    }

    bool Comes(std::string_view words)
    {
        return QTest::qWaitFor([&] { return Words().starts_with(words); });
    }

    ExchangeProgress& progress = panel.waitIndicator.progress;
};

TEST_F(WaitAnnouncements, SayThatTheUnitIsSilentAndThatItAnswersAgain)
{
    Begin();
    EXPECT_EQ(Words(), "Waiting for the unit");
    progress.SetStalled(true);
    EXPECT_TRUE(Comes("Nothing comes from the unit: 0 of 10 exchanges done"));
    progress.SetStalled(false);
    EXPECT_TRUE(Comes("The unit answers again"));
    End();
    EXPECT_EQ(Words(), "The wait has ended: 0 of 10 exchanges done");
}

TEST_F(WaitAnnouncements, SayNothingInANewWaitOfTheSilenceInTheOneBefore)
{
    Begin();
    progress.SetStalled(true);
    EXPECT_TRUE(Comes("Nothing comes from the unit"));
    End();
    Begin();
    QTest::qWait(2 * PaintPause::kMillisecondsBetweenPaints);
    EXPECT_EQ(Words(), "Waiting for the unit");
}

} // namespace
} // namespace tarvex::tests
