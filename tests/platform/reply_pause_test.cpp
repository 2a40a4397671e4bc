#include "platform/port_test.h"

#include <thread>

namespace tarvex::tests
{
namespace
{

using namespace std::chrono_literals;

/// So many that the program would sleep for longer than any test waits.
constexpr int kEndlessReply = 20'000;

class ReplyPauseTest : public PortTest
{
protected:
    ReplyPauseTest()
    {
        port.Open();
        port.Output("a02100\r");
    }

    /// The first byte comes as late as on a line, or later.
    void BeginReply(std::chrono::milliseconds late = 0ms)
    {
        std::this_thread::sleep_for(12ms + late);
        terminal.Send("x");
        ASSERT_TRUE(PumpUntil([&] { return port.InBufferCount() == 1; }));
    }

    /// A page that takes its time on the line, of which a part is seen first; then the next
    /// request.
    void TakePageAtPace()
    {
        port.ExpectInput(50);
        std::this_thread::sleep_for(70ms);
        terminal.Send(std::string(49, 'x'));
        EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() == 49; }));
        terminal.Send("x");
        EXPECT_EQ(InputOf(50), std::string(50, 'x'));
        port.Output("a02110\r");
    }

    /// The last six characters of a page of which the others are there.
    void EndPage()
    {
        terminal.Send(std::string(6, 'x'));
        EXPECT_EQ(InputOf(50), std::string(50, 'x'));
    }

    /// Whether the rest of a first page that begins so late is awaited at the line itself.
    bool AwaitsRestOfFirstPage(std::chrono::milliseconds late)
    {
        bool awaited = false;
        for (int trial = 0; trial < 20 && !awaited; ++trial) {
            port.Close(); // and with it what is known of the pace
            port.Open();
            port.Output("a02100\r");
            port.ExpectInput(50);
            BeginReply(late);
            terminal.Send(std::string(43, 'x'));
            while (port.InBufferCount() < 44 && !awaited) {
                pump.WaitForEvents();
                awaited = port.AwaitRest();
            }
            EndPage();
        }
        return awaited;
    }

    /// How often the wait for that many bytes finds others than before.
    int LooksUntil(int count)
    {
        int looks = 0;
        int seen = port.InBufferCount();
        while (seen < count) {
            pump.WaitForEvents();
            if (port.InBufferCount() != seen) ++looks;
            seen = port.InBufferCount();
        }
        return looks;
    }
};

TEST_F(ReplyPauseTest, SleepsWhileThePageComesDownTheLine)
{
    port.ExpectInput(50);
    std::thread unit([&] {
        std::this_thread::sleep_for(10ms);
        for (int count = 0; count < 50; ++count) {
            terminal.Send("x");
            std::this_thread::sleep_for(1146us);
        }
    });
    EXPECT_LE(LooksUntil(50), 25) << "and not one a character";
    unit.join();
    EXPECT_EQ(port.Input(), std::string(50, 'x'));
}

TEST_F(ReplyPauseTest, SleepsFromTheRequestOnWhereThePageBeforeCameAtThePaceOfTheLine)
{
    TakePageAtPace();
    port.ExpectInput(kEndlessReply);
    terminal.Send("x");
    PumpFor(30);
    EXPECT_EQ(port.InBufferCount(), 0);
}

TEST_F(ReplyPauseTest, TakesAPageInABurstWhenThePauseAfterOneAtPaceIsOver)
{
    TakePageAtPace();
    port.ExpectInput(50);
    terminal.Send(std::string(50, 'x'));
    EXPECT_EQ(InputOf(50), std::string(50, 'x'));
}

TEST_F(ReplyPauseTest, SleepsFromTheRequestOnNoLongerAfterAPageInABurst)
{
    TakePageAtPace();
    port.ExpectInput(50);
    terminal.Send(std::string(50, 'x'));
    EXPECT_EQ(InputOf(50), std::string(50, 'x'));
    port.Output("a02120\r");
    port.ExpectInput(kEndlessReply);
    terminal.Send("x");
    EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() == 1; }));
}

TEST_F(ReplyPauseTest, AwaitsAnAnswerAtTheLineItselfAfterAPageAtPace)
{
    bool awaited = false;
    for (int trial = 0; trial < 20 && !awaited; ++trial) { // a machine that stalls is late
        TakePageAtPace();
        port.Output("}");
        port.ExpectInput(1);
        terminal.Send("!");
        awaited = port.AwaitRest();
        EXPECT_EQ(port.InBufferCount(), awaited ? 1 : 0);
        EXPECT_EQ(InputOf(1), "!");
    }
    EXPECT_TRUE(awaited);
}

TEST_F(ReplyPauseTest, AwaitsASingleCharacterAtTheLineItselfBeforeAnyPageHasCome)
{
    bool awaited = false;
    for (int trial = 0; trial < 20 && !awaited; ++trial) {
        port.Output("}");
        port.ExpectInput(1);
        terminal.Send("!");
        awaited = port.AwaitRest();
        EXPECT_EQ(InputOf(1), "!");
    }
    EXPECT_TRUE(awaited);
}

TEST_F(ReplyPauseTest, AwaitsTheRestOfTheFirstPageAtTheLineItselfWhereItBeganAtThePaceOfTheLine)
{
    EXPECT_TRUE(AwaitsRestOfFirstPage(0ms));
}

TEST_F(ReplyPauseTest, AwaitsTheRestOfAPageThatHasBegunLateAtTheLineItself)
{
    EXPECT_TRUE(AwaitsRestOfFirstPage(30ms));
}

TEST_F(ReplyPauseTest, AwaitsTheRestOfAPageAtTheLineItselfAsSoonAsThePauseIsOver)
{
    bool awaited = false;
    for (int trial = 0; trial < 20 && !awaited; ++trial) {
        TakePageAtPace();
        port.ExpectInput(50);
        terminal.Send(std::string(44, 'x'));
        std::this_thread::sleep_for(50ms);
        EXPECT_EQ(port.InBufferCount(), 0) << "the program still sleeps";
        pump.WaitForEvents();
        awaited = port.AwaitRest();
        EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() == 44; }));
        EndPage();
    }
    EXPECT_TRUE(awaited);
}

TEST_F(ReplyPauseTest, KeepsTheOrderOfWhatIsTakenFromTheLineItself)
{
    bool awaited = false;
    for (int trial = 0; trial < 20 && !awaited; ++trial) {
        TakePageAtPace();
        terminal.Send("a");
        EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() == 1; }));
        port.Output("}");
        port.ExpectInput(2);
        terminal.Send("b");
        std::this_thread::sleep_for(1ms); // until the two are due
        awaited = port.AwaitRest();
        terminal.Send("c");
        EXPECT_EQ(InputOf(3), "abc");
    }
    EXPECT_TRUE(awaited);
}

TEST_F(ReplyPauseTest, LeavesAnAnswerThatIsLateToTheEventQueue)
{
    TakePageAtPace();
    port.Output("}");
    port.ExpectInput(1);
    EXPECT_FALSE(port.AwaitRest());
    terminal.Send("!");
    EXPECT_EQ(InputOf(1), "!");
}

TEST_F(ReplyPauseTest, AwaitsNothingThatIsNotDue)
{
    EXPECT_FALSE(port.AwaitRest()) << "nothing is expected";
    port.ExpectInput(2);
    terminal.Send("!?");
    EXPECT_FALSE(port.AwaitRest()) << "no page has come yet";
    EXPECT_EQ(InputOf(2), "!?");
    TakePageAtPace();
    port.ExpectInput(kEndlessReply);
    terminal.Send("x");
    EXPECT_FALSE(port.AwaitRest()) << "there is a pause";
    PumpFor(30);
    EXPECT_EQ(port.InBufferCount(), 0) << "which goes on";
    port.Close();
    EXPECT_FALSE(port.AwaitRest());
}

TEST_F(ReplyPauseTest, LooksAtEveryByteThatNobodyHasAnnounced)
{
    BeginReply();
    terminal.Send("y");
    EXPECT_EQ(InputOf(2), "xy");
}

TEST_F(ReplyPauseTest, LooksAtBytesThatComeFasterThanTheLineCarriesThem)
{
    port.ExpectInput(kEndlessReply);
    terminal.Send(std::string(900, 'x')); // a second on a line
    EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() == 900; }));
    terminal.Send("y");
    EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() == 901; }));
}

TEST_F(ReplyPauseTest, EndsWithTheNextOutput)
{
    port.ExpectInput(kEndlessReply);
    BeginReply();
    terminal.Send("y");
    port.Output("}");
    EXPECT_EQ(InputOf(2), "xy");
}

TEST_F(ReplyPauseTest, EndsWhenTheBytesAreTaken)
{
    port.ExpectInput(kEndlessReply);
    BeginReply();
    EXPECT_EQ(port.Input(), "x");
    terminal.Send("y");
    EXPECT_EQ(InputOf(1), "y");
}

TEST_F(ReplyPauseTest, EndsWithTheOpening)
{
    port.ExpectInput(kEndlessReply);
    BeginReply();
    port.Close();
    port.Open();
    terminal.Send("y");
    EXPECT_EQ(InputOf(1), "y");
}

} // namespace
} // namespace tarvex::tests
