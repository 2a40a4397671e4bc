#include "core/handlers.h"

#include "core/failure.h"
#include "support/scripted_boxes.h"

#include <gtest/gtest.h>

#include <functional>

namespace tarvex::tests
{

namespace
{

class NestedHandlers : public ::testing::Test
{
protected:
    /// Presses a command again and again inside itself; gives how often it ran.
    int PressInside(int times)
    {
        int ran = 0;
        const std::function<void()> command = [&] {
            ++ran;
            if (ran < times) handlers.Run(command);
        };
        handlers.Run(command);
        return ran;
    }

    ScriptedBoxes boxes;
    ProgramEnd end;
    Handlers handlers{end, boxes};
};

TEST_F(NestedHandlers, AreAHundredAndNoMore)
{
    EXPECT_EQ(PressInside(100), 100);
    EXPECT_EQ(PressInside(1400), 100);
}

TEST_F(NestedHandlers, CountOnlyWhileTheyRun)
{
    int ran = 0;
    handlers.Run([&] { ran = PressInside(1400); });
    EXPECT_EQ(ran, 99);
    EXPECT_EQ(PressInside(1400), 100);
}

TEST_F(NestedHandlers, CountNoMoreOnceAnEndHasCutThemShort)
{
    int ran = 0;
    for (int press = 0; press < 200; ++press) {
        handlers.Run([&] {
            ++ran;
            throw ProgramEnded();
        });
    }
    EXPECT_EQ(ran, 200);
}

} // namespace

} // namespace tarvex::tests
