#pragma once

#include "blocks/read_all_blocks.h"
#include "blocks/read_block.h"
#include "blocks/reset_block.h"
#include "blocks/reset_gain_zero.h"
#include "blocks/set_all.h"
#include "blocks/set_block.h"
#include "blocks/total_reset.h"
#include "support/header_table.h"
#include "support/test_program.h"

namespace tarvex::tests
{

inline constexpr const char* kNotConnected = "Attention: TAR--VEX not connected";
inline constexpr const char* kBlocksQuestion =
    "ATTENTION: ALL BLOCKS MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?";
inline constexpr const char* kBlockQuestion =
    "ATTENTION: ALL BLOCK MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?";
inline constexpr const char* kGainZeroQuestion =
    "ATTENTION: SET DEFAULT ZERO/GAIN, WOULD YOU LIKE TO CONTINUE ?";

// A click on each command's button.

inline void PressReadBlock(TestProgram& program)
{
    program.ClickLink(
        [&](DeviceLink& link) { ReadBlock(program.panel, program.state, link, program.view); });
}

inline void PressReadAllBlocks(TestProgram& program)
{
    program.ClickLink(
        [&](DeviceLink& link) { ReadAllBlocks(program.panel, program.state, link, program.view); });
}

inline void PressSetBlock(TestProgram& program)
{
    program.ClickLink([&](DeviceLink& link) {
        SetBlock(program.panel, program.state, link, program.view, program.world);
    });
}

inline void PressSetAll(TestProgram& program)
{
    program.ClickLink([&](DeviceLink& link) {
        SetAll(program.panel, program.state, link, program.view, program.world);
    });
}

inline void PressResetBlock(TestProgram& program)
{
    program.ClickLink([&](DeviceLink& link) {
        ResetBlock(program.panel, program.state, link, program.view, program.world);
    });
}

inline void PressTotalReset(TestProgram& program)
{
    program.ClickLink([&](DeviceLink& link) {
        TotalReset(program.panel, program.state, link, program.view, program.world);
    });
}

inline void PressResetGainZero(TestProgram& program)
{
    program.ClickLink([&](DeviceLink& link) {
        ResetGainZero(program.panel, program.state, link, program.view, program.world);
    });
}

} // namespace tarvex::tests
