#include "core/control_panel.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

TEST(ControlPanel, BoxesHaveTheirMaximumLengths)
{
    const ControlPanel panel;
    const std::vector<std::pair<const TextBox*, std::size_t>> lengths = {
        {&panel.blockNumber, 2},         {&panel.header[Client], 8},
        {&panel.header[Site], 8},        {&panel.header[Tube], 4},
        {&panel.header[DepthMetres], 3}, {&panel.header[DepthTenths], 1},
        {&panel.header[Step], 1},        {&panel.header[Guides], 1},
        {&panel.header[North], 4},       {&panel.header[Readout], 2},
        {&panel.header[Date], 6},        {&panel.header[Time], 6},
        {&panel.calibration[Gain1], 7},  {&panel.calibration[Gain2], 7},
        {&panel.calibration[Zero1], 7},  {&panel.calibration[Zero2], 7},
        {&panel.calibration[Point], 1},  {&panel.downloadBlock, 2}};
    for (const auto& [box, length] : lengths)
        EXPECT_EQ(box->MaximumLength(), length);
}

TEST(ControlPanel, HidesTheCalibrationAndTheHeaderFilesPath)
{
    const ControlPanel panel;
    for (const TextBox* box :
         {&panel.headerFile, &panel.calibration[Gain1], &panel.calibration[Gain2],
          &panel.calibration[Zero1], &panel.calibration[Zero2], &panel.calibration[Point]}) {
        EXPECT_FALSE(box->Visible());
    }
}

TEST(ControlPanel, StartsAtRest)
{
    const ControlPanel panel;
    EXPECT_FALSE(panel.waitIndicator.label.Visible());
    EXPECT_FALSE(panel.waitIndicator.ground.Visible());
    EXPECT_FALSE(panel.downloadButton.Enabled());
    EXPECT_FALSE(panel.previousRecordButton.Enabled());
    EXPECT_FALSE(panel.nextRecordButton.Enabled());
    EXPECT_EQ(panel.blockNumber.Text(), "01");
    EXPECT_EQ(panel.downloadBlock.Text(), "01");
    EXPECT_EQ(panel.header[Guides].Text(), "2");
    EXPECT_EQ(panel.header[DepthTenths].Text(), "0");
    EXPECT_EQ(panel.cycleDelay.Text(), "3");
}

} // namespace
} // namespace tarvex::tests
