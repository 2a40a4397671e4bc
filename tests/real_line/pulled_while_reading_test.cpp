#include "real_line/pulled_adapter_test.h"

namespace tarvex::tests
{
namespace
{

using unit::Moment;

/// Reads and downloads wait for the rest without end. The port is let go in the wait, which uses no
/// processor; the next press of Read Block ends it.
class RealPulledWhileReadingTest : public RealPulledAdapterTest,
                                   public ::testing::WithParamInterface<Phase>
{
protected:
    void ExpectQuietWait(const char* button)
    {
        PullAt(GetParam());
        const auto press = [this] {
            AtPanel().ShowTab(1);
            AtPanel().Click("Command3");
        };

        EXPECT_LT(LoadOfWait(
                      button, [this] { return IsLetGo(); }, press),
                  kIdleLoad);

        EXPECT_EQ(boxes.texts, QStringList{kNotConnected});
        EXPECT_FALSE(AtPanel().IsShown("Label34"));
    }
};

TEST_P(RealPulledWhileReadingTest, ReadBlockWaitsQuietlyAndLetsThePortGo)
{
    ExpectQuietWait("Command3");
    ExpectAsBefore();
}

TEST_P(RealPulledWhileReadingTest, ADownloadWaitsQuietlyAndLetsThePortGo)
{
    AtPanel().ShowTab(2);
    AtPanel().Type("numblocco", "01");
    ChooseFolder(folder.Path());

    ExpectQuietWait("command3d1");
    ExpectAsBefore();
}

INSTANTIATE_TEST_SUITE_P(, RealPulledWhileReadingTest,
                         ::testing::Values(Phase{"AtTheFirstFrame", Moment::PageRead, 1, 0},
                                           Phase{"InAPage", Moment::PageRead, 3, 20},
                                           Phase{"AtALaterWake", Moment::Woken, 4, 0},
                                           Phase{"BeforeTheLastCharacter", Moment::PageRead, 10,
                                                 49}),
                         PhaseName<Phase>);

TEST_F(RealPulledAdapterTest, InARowOfADownloadTheRowsBeforeItAreInTheFile)
{
    AtPanel().ShowTab(2);
    AtPanel().Type("numblocco", "01");
    ChooseFolder(folder.Path());
    PullAt({"", Moment::PageRead, 10 + 5, 30}); // ten pages of the header, four rows
    std::uintmax_t size = 0;

    LoadOfWait(
        "command3d1", [this] { return IsLetGo(); },
        [&] {
            size = std::filesystem::file_size(folder / "datiram.dat");
            AtPanel().ShowTab(1);
            AtPanel().Click("Command3");
        });

    EXPECT_EQ(size, 113U * (2 + 4));
    ExpectAsBefore();
}

} // namespace
} // namespace tarvex::tests
