#pragma once

#include "core/failure.h"
#include "core/failure_rule.h"
#include "core/header_store.h"
#include "core/panel.h"
#include "core/start_up.h"
#include "core/working_state.h"
#include "link/device_link.h"
#include "support/scripted_boxes.h"
#include "support/scripted_port.h"
#include "support/scripted_unit.h"
#include "support/temporary_folder.h"
#include "support/virtual_world.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

namespace tarvex::tests
{

/// The whole program below the window: panel, state, header file, line and unit, on a virtual clock
/// and in a folder of its own. The start-up has run: the panel shows record 1.
class LogicTest : public ::testing::Test
{
protected:
    LogicTest();

    /// Runs a handler as a click on its control does, also from inside an event of the world: with
    /// a rule of its own, and with its failure caught at the outside, which ends the program.
    void Click(const std::function<void()>& handler);

    /// As Click, for a handler on the line, with a link of its own.
    void ClickLink(const std::function<void(DeviceLink&)>& handler);

    /// The record of that number in the header file.
    BlockHeader StoredHeader(int recordNumber) const;

    /// The text of the failure that a handler let go up, if one did.
    std::optional<std::string> unhandledFailure;

    /// Handlers that ran to their end, in order of ending; one cut off by the end of the program
    /// does not count.
    int finishedHandlers = 0;

    TemporaryFolder folder;
    WorkingState state;
    Panel panel;
    HeaderStore headers{state, panel};
    ScriptedBoxes boxes;
    VirtualWorld world{[this] { CountTick(state); }};
    ScriptedPort port;
    ScriptedUnit unit{world, port};
    Line line{port, world, world, boxes, state, &panel};
};

/// The link at rest: port closed, indicator hidden.
#define EXPECT_LINK_AT_REST()                                                                      \
    do {                                                                                           \
        EXPECT_FALSE(port.IsOpen());                                                               \
        EXPECT_FALSE(panel.Label34.Visible());                                                     \
        EXPECT_FALSE(panel.Shape1.Visible());                                                      \
    } while (false)

} // namespace tarvex::tests
