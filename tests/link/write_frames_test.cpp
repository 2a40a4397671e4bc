#include "link/write_frames.h"

#include "core/header_boxes.h"
#include "support/logic_test.h"

#include <array>
#include <cmath>
#include <limits>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array<const char*, 30> kAddresses = {
    "00000", "01000", "02000", "03000", "04000", "05000", "06000", "07000", "08000", "09000",
    "0A000", "0B000", "0C000", "0D000", "0E000", "0F000", "10000", "11000", "12000", "13000",
    "14000", "15000", "16000", "17000", "18000", "19000", "1A000", "1B000", "1C000", "1D000"};

/// A link under the rule of the commands, on an open port whose unit is silent on frames.
class WriteFramesTest : public LogicTest
{
protected:
    WriteFramesTest()
    {
        link.OpenPort();
        port.history.clear();
        panel.header[Client].SetText("ROSSI   ");
        panel.header[Site].SetText("DIGA A  ");
        panel.header[Tube].SetText("T12 ");
        panel.header[DepthMetres].SetText("125");
        panel.header[DepthTenths].SetText("7");
        panel.header[Step].SetText("1");
        panel.header[Guides].SetText("4");
        panel.header[North].SetText("-015");
        panel.header[Readout].SetText("03");
        panel.header[Date].SetText("161126");
        panel.header[Time].SetText("093059");
        panel.calibration[Gain1].SetText("+1.1111");
        panel.calibration[Zero1].SetText("+0.2222");
        panel.calibration[Gain2].SetText("-3.3333");
        panel.calibration[Zero2].SetText("-0.4444");
        panel.calibration[Point].SetText("P");
    }

    SkipOnError rule;
    DeviceLink link{line};
};

TEST_F(WriteFramesTest, HeaderFrameCarriesTheElevenBoxesInTheirOrder)
{
    SendHeaderFrame(link, panel.header, 10);

    EXPECT_THAT(port.sent, ElementsAre("C0A000ROSSI   DIGA A  T12 125714-01503161126093059\r"));
    EXPECT_EQ(port.sent[0].size(), 51U);
}

TEST_F(WriteFramesTest, CalibrationFrameCarriesEachGainBeforeItsZero)
{
    SendCalibrationFrame(link, panel.calibration, 10);

    EXPECT_THAT(port.sent, ElementsAre("D0A000+1.1111+0.2222-3.3333-0.4444P\r"));
    EXPECT_EQ(port.sent[0].size(), 36U);
}

TEST_F(WriteFramesTest, ClosingFrameWritesOneFixedByte)
{
    SendClosingFrame(link);

    EXPECT_THAT(port.sent, ElementsAre("b000F500\r"));
}

TEST_F(WriteFramesTest, EachOfTheThirtyIndicesHasItsAddress)
{
    for (std::size_t index = 0; index < kAddresses.size(); ++index) {
        port.sent.clear();
        SendHeaderFrame(link, panel.header, static_cast<double>(index));
        SendCalibrationFrame(link, panel.calibration, static_cast<double>(index));
        ASSERT_EQ(port.sent.size(), 2U);
        EXPECT_EQ(port.sent[0].substr(0, 6), std::string("C") + kAddresses[index]);
        EXPECT_EQ(port.sent[1].substr(0, 6), std::string("D") + kAddresses[index]);
    }
}

TEST_F(WriteFramesTest, AnyOtherIndexSendsNothing)
{
    for (const double index :
         {-1.0, 30.0, 99.0, 2.5, 0.5, -0.5, 29.5, 28.999999, 4294967296.0, std::nan(""),
          std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()}) {
        SendHeaderFrame(link, panel.header, index);
        SendCalibrationFrame(link, panel.calibration, index);
        EXPECT_THAT(port.sent, IsEmpty()) << index;
    }
}

TEST_F(WriteFramesTest, ADefaultDateGoesOutWithoutItsTwoBlanks)
{
    LoadHeader(panel.header, DefaultHeader(10));

    SendHeaderFrame(link, panel.header, 10);

    EXPECT_THAT(port.sent, ElementsAre("C0A000CLIENT11SITE0000T   000002+00000DDMMYYhhmmss\r"));
}

TEST_F(WriteFramesTest, AShortTextMakesTheFrameShort)
{
    panel.header[Client].SetText("A");
    panel.header[DepthMetres].SetText("");
    panel.header[Time].SetText("");
    panel.calibration[Gain2].SetText("");

    SendHeaderFrame(link, panel.header, 0);
    SendCalibrationFrame(link, panel.calibration, 0);

    EXPECT_THAT(port.sent, ElementsAre("C00000ADIGA A  T12 714-01503161126\r",
                                       "D00000+1.1111+0.2222-0.4444P\r"));
}

TEST_F(WriteFramesTest, ALongTextIsCutAtItsBox)
{
    panel.header[Client].SetText("ROSSI & FIGLI");
    panel.header[DepthTenths].SetText("78");
    panel.calibration[Point].SetText("PQ");

    SendHeaderFrame(link, panel.header, 0);
    SendCalibrationFrame(link, panel.calibration, 0);

    EXPECT_EQ(port.sent[0], "C00000ROSSI & DIGA A  T12 125714-01503161126093059\r");
    EXPECT_EQ(port.sent[1], "D00000+1.1111+0.2222-3.3333-0.4444P\r");
}

TEST_F(WriteFramesTest, EveryByteGoesOutUnchanged)
{
    const std::string odd("\0\r\n\xE0\x80\xFF !", 8);
    panel.header[Site].SetText(odd);

    SendHeaderFrame(link, panel.header, 29);

    EXPECT_EQ(port.sent[0], "C1D000ROSSI   " + odd + "T12 125714-01503161126093059\r");
}

TEST_F(WriteFramesTest, NothingGoesOutOnAPortThatIsNotOpen)
{
    link.ClosePort();

    SendHeaderFrame(link, panel.header, 0);
    SendCalibrationFrame(link, panel.calibration, 0);
    SendClosingFrame(link);

    EXPECT_THAT(port.sent, IsEmpty());
}

TEST_F(WriteFramesTest, AFailingOutputGoesUpWithoutTheRule)
{
    link.ClosePort();
    LetFailuresGoUp noSkipping;

    EXPECT_THROW(SendClosingFrame(link), RunTimeFailure);
}

} // namespace
} // namespace tarvex::tests
