#pragma once

#include "documents/heard_line.h"
#include "documents/page.h"
#include "settings/clock_test_fixture.h"

namespace tarvex::tests
{

/// A whole program and a simulated unit with surveys, whose first block holds one of three depths.
class ConversationTest : public ClockTest
{
protected:
    ConversationTest();

    /// One command of the operator, by the name of its example; a question is answered with OK.
    void Run(const std::string& command);

    const Page page{"protocol.md"};
    HeardLine heard;
    Milliseconds ended = 0; ///< when the command had ended

private:
    void Press(const std::string& command);
};

} // namespace tarvex::tests
