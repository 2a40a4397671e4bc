#include "conversation/followed_commands.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

/// The small survey's header is read a millisecond an answer: page n of it is done at 2 n.
using Stall = FollowedCommands;
using Strings = std::vector<std::string>;

TEST_F(Stall, IsToldThirtyTicksAfterAWakeWithoutAnAnswer)
{
    MissWake(4);
    world.EndProgramAt(60'000);
    Read();
    EXPECT_EQ(told, Counted(3, 10) + Strings({"3/10 stalled at 3000", "3/10 alive at 60000"}));
}

TEST_F(Stall, IsToldThirtyTicksAfterAFrameWithoutAReply)
{
    MissRead(1);
    world.EndProgramAt(60'000);
    Read();
    EXPECT_THAT(told, ElementsAre("0/10", "0/10 stalled at 3000", "0/10 alive at 60000"));
}

TEST_F(Stall, CountsFromTheBeginningOfItsOwnWait)
{
    MissRead(1);
    MissWake(2);
    world.At(2'000, [this] { port.Receive(ScriptedUnit::PageReply("CLIENT0 ")); });
    world.EndProgramAt(60'000);
    Read();
    EXPECT_THAT(told, ElementsAre("0/10", "1/10", "1/10 stalled at 5000", "1/10 alive at 60000"));
}

TEST_F(Stall, EndsWithTheNextByte)
{
    MissRead(2);
    const std::string reply = ScriptedUnit::PageReply("SITE0000");
    world.At(9'050, [=, this] { port.Receive(reply.substr(0, 10)); });
    world.At(20'000, [=, this] { port.Receive(reply.substr(10)); });
    Read();
    EXPECT_EQ(told, Strings({"0/10", "1/10", "1/10 stalled at 3000", "1/10 alive at 9050",
                             "1/10 stalled at 12000", "1/10 alive at 20000"}) +
                        Counted(10, 10, 2));
    EXPECT_EQ(panel.header[Site].Text(), "SITE0000");
}

TEST_F(Stall, IsNotToldWhileBytesKeepComing)
{
    MissRead(2);
    const std::string reply = ScriptedUnit::PageReply("SITE0000");
    for (std::size_t byte = 0; byte < reply.size(); ++byte)
        world.At(static_cast<Milliseconds>(2'900 * (byte + 1)),
                 [=, this] { port.Receive(reply.substr(byte, 1)); });
    Read();
    EXPECT_EQ(told, Counted(10, 10));
}

TEST_F(Stall, LastsAsLongAsTheSilence)
{
    MissRead(1);
    world.At(3'000'000, [&] { port.Receive(ScriptedUnit::PageReply("CLIENT0 ")); });
    Read(); // the tick has gone back to 0 five times meanwhile
    EXPECT_EQ(told, Strings({"0/10", "0/10 stalled at 3000", "0/10 alive at 3000000"}) +
                        Counted(10, 10, 1));
}

TEST_F(Stall, OfAPulledAdapterIsTold)
{
    world.At(5, [&] { port.vanished = true; });
    world.EndProgramAt(4'000);
    Download();
    EXPECT_EQ(told, Counted(2, 250) + Strings({"2/250 stalled at 3000", "2/250 alive at 4000"}));
}

TEST_F(Stall, EndsWhenAnotherCommandClosesThePort)
{
    MissRead(2);
    PressAt(10'000, [&] { WriteTheDelay(); });
    Read();
    EXPECT_THAT(told, ElementsAre("0/10", "1/10", "1/10 stalled at 3000", "0/1 alive at 10000",
                                  "1/1", "1/10"));
    EXPECT_FALSE(Told().UnderWay());
}

/// An answer that was late for the outer command is what the inner one's wake takes.
TEST_F(Stall, OfANestedCommandGivesWayToTheOuterOnes)
{
    unit.answerWake = [](int wake) { return wake < 4 ? "!" : ""; };
    PressAt(10'000, [&] { Read(); });
    boxes.Expect(kNotConnected);
    Read();
    EXPECT_EQ(told,
              Counted(3, 10) + Strings({"3/10 stalled at 3000", "0/10 alive at 10000", "3/10"}));
}

TEST_F(Stall, OfANestedReadIsItsOwn)
{
    unit.answerRead = [](int read, const std::string& reply) {
        return read < 5 ? reply : std::string();
    };
    PressAt(10'000, [&] {
        panel.blockNumber.SetText("02");
        Read();
    });
    world.EndProgramAt(20'000);
    Read();
    EXPECT_EQ(told, Counted(4, 10) + Strings({"4/10 stalled at 3000", "0/10 alive at 10000",
                                              "0/10 stalled at 13000", "4/10 alive at 20000"}));
}

TEST_F(Stall, BeginsAnewAfterANestedCommandThatLeavesThePortOpen)
{
    MissRead(2);
    boxes.ExpectQuestion(kBlockQuestion, true);
    PressAt(10'000, [&] { PressResetBlock(*this); });
    world.EndProgramAt(20'000);
    Read();
    EXPECT_EQ(told, Strings({"0/10", "1/10", "1/10 stalled at 3000", "0/2 alive at 10000", "1/2",
                             "2/2", "1/10", "1/10 stalled at 13400", "1/10 alive at 20000"}));
}

TEST_F(Stall, IsNotToldOfAQuestionInAWaitWithALimit)
{
    MissWake(1);
    PressAt(100, [&] { PressSetAll(*this); });
    boxes.ExpectQuestion(kBlockQuestion, false, [&] { world.PassTime(10'000); });
    boxes.Expect(kNotConnected);
    Read();
    EXPECT_THAT(told, ElementsAre("0/10"));
}

TEST_F(Stall, OfADialogsCommandIsNotShown)
{
    const Line dialogLine{port, world, world, boxes, state, nullptr};
    MissRead(1);
    world.EndProgramAt(60'000);
    Click([&] {
        DeviceLink link(dialogLine);
        OperatorView dialogView(dialogLine);
        ReadClock(nullptr, link, dialogView);
    });
    EXPECT_THAT(told, ElementsAre());
    EXPECT_EQ(world.Now(), 60'000);
}

} // namespace
} // namespace tarvex::tests
