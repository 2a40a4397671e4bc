#pragma once

#include "core/failure.h"
#include "core/failure_rule.h"
#include "core/start_up.h"
#include "support/test_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace tarvex::tests
{

/// A test of a program of its own.
class LogicTest : public ::testing::Test, public TestProgram
{
};

/// The name of a row of a table test.
struct RowName {
    template <class Info>
    std::string operator()(const Info& info) const
    {
        return info.param.name;
    }
};

/// The link at rest: port closed, indicator hidden.
#define EXPECT_LINK_AT_REST()                                                                      \
    do {                                                                                           \
        EXPECT_FALSE(port.IsOpen());                                                               \
        EXPECT_FALSE(panel.waitIndicator.label.Visible());                                         \
        EXPECT_FALSE(panel.waitIndicator.ground.Visible());                                        \
    } while (false)

/// The link in a wait that nothing but the end of the program ends: port open, indicator shown.
#define EXPECT_LINK_WAITING()                                                                      \
    do {                                                                                           \
        EXPECT_TRUE(port.IsOpen());                                                                \
        EXPECT_TRUE(panel.waitIndicator.label.Visible());                                          \
        EXPECT_TRUE(panel.waitIndicator.ground.Visible());                                         \
    } while (false)

} // namespace tarvex::tests
