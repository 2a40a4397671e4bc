#include "real_line/ftdi_adapter.h"
#include "real_line/open_files.h"
#include "real_line/real_line_test.h"

namespace tarvex::tests
{
namespace
{

using unit::Moment;

struct NamedMark {
    const char* name;
    Mark mark;
};

void PrintTo(const NamedMark& mark, std::ostream* out)
{
    *out << mark.name;
}

/// What the chip notes of characters. A line without parity asks for nothing of it: each character
/// is taken for what it is.
class RealChipMarksTest : public RealLineTest, public ::testing::WithParamInterface<NamedMark>
{
protected:
    RealChipMarksTest() { StartOn(adapter.Device()); }

    /// Has the chip make a marked character of noise before that answer.
    void NoiseBefore(Moment moment, int number)
    {
        adapter.farEnd.At(moment, number, [this](std::string&) {
            adapter.SayMarked("\x55", GetParam().mark);
            adapter.AwaitTaken();
        });
    }

    /// The pages after those that the noise has cost, and the next command.
    void ExpectTheRestWhole()
    {
        EXPECT_TRUE(boxes.texts.isEmpty());
        EXPECT_EQ(AtPanel().Text("Text10"), "03");
        EXPECT_EQ(AtPanel().Text("Text11"), "120426");
        EXPECT_EQ(AtPanel().Text("Text12"), "093015");
        EXPECT_FALSE(HasPortOpen());
        ExpectBlockRead();
    }

    FtdiAdapter adapter;
};

TEST_P(RealChipMarksTest, NoiseBeforeAPageCostsNoneOfTheLaterPages)
{
    NoiseBefore(Moment::PageRead, 3);

    AtPanel().Click("Command3");

    EXPECT_NE(AtPanel().Text("Text5"), "T01 ");
    ExpectTheRestWhole();
}

TEST_P(RealChipMarksTest, NoiseBeforeTheAnswerToAWakeCostsNoneOfTheLaterPages)
{
    NoiseBefore(Moment::Woken, 1);

    AtPanel().Click("Command3");

    EXPECT_EQ(AtPanel().Text("Text3"), "");
    ExpectTheRestWhole();
}

INSTANTIATE_TEST_SUITE_P(, RealChipMarksTest,
                         ::testing::Values(NamedMark{"Framing", Mark::Framing},
                                           NamedMark{"Parity", Mark::Parity},
                                           NamedMark{"Overrun", Mark::Overrun},
                                           NamedMark{"Break", Mark::Break}),
                         [](const auto& mark) { return std::string(mark.param.name); });

class RealMarkedPageTest : public RealChipMarksTest
{
};

TEST_P(RealMarkedPageTest, AWholePageIsTakenWithItsMark)
{
    adapter.farEnd.At(Moment::PageRead, 3, [this](std::string& answer) {
        adapter.SayMarked(answer, GetParam().mark);
        answer.clear();
    });

    ExpectBlockRead();
}

INSTANTIATE_TEST_SUITE_P(, RealMarkedPageTest,
                         ::testing::Values(NamedMark{"Framing", Mark::Framing},
                                           NamedMark{"Parity", Mark::Parity}),
                         [](const auto& mark) { return std::string(mark.param.name); });

} // namespace
} // namespace tarvex::tests
