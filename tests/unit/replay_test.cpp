#include "unit/replay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace tarvex::unit
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace std::chrono_literals;

constexpr const char* kTwoPages = R"(# two pages, and the line goes away
     0.000000  manager  (opens the port)
     0.000100  manager  }
     0.003000  unit     !
     0.003500  manager  a00000\r
     0.070000  unit     41 42\r\n
     0.071000  manager  }
     0.074000  unit     !
     0.075000  manager  a00010\r
     0.140000  unit     43 44\r\n
     0.240000  unit     (hang-up)
)";

/// A replay with a clock of its own, which is moved to each answer.
class ReplayTest : public testing::Test
{
protected:
    void Play(const char* record, Pace pace = Pace::Line)
    {
        std::istringstream stream(record);
        replay_ = std::make_unique<Replay>(ReadLog(stream), pace);
        replay_->SetListener([this](const std::string& text) { differences.push_back(text); });
    }

    /// Says something, and gives all that comes back and when, from then on.
    std::string Say(std::string_view bytes)
    {
        const auto before = now;
        replay_->Receive(bytes, now);
        std::ostringstream heard;
        while (const auto due = replay_->NextDue()) {
            now = std::max(now, *due);
            const auto delivery = replay_->Deliver(now);
            if (!delivery.bytes.empty()) heard << (now - before).count() << ":" << delivery.bytes;
            if (delivery.hangUp) heard << (now - before).count() << ":gone";
        }
        return heard.str();
    }

    std::vector<std::string> DifferencesAtTheEnd()
    {
        replay_->Finish();
        return differences;
    }

    Time now{5s};
    std::vector<std::string> differences;

private:
    std::unique_ptr<Replay> replay_;
};

TEST_F(ReplayTest, AnswersAsRecordedAtThePaceOfTheRecord)
{
    Play(kTwoPages);
    EXPECT_EQ(Say("}"), "2900:!");
    EXPECT_EQ(Say("a00000\r"), "66500:41 42\r\n");
    EXPECT_EQ(Say("}"), "3000:!");
    EXPECT_EQ(Say("a00010\r"), "65000:43 44\r\n165000:gone");
    EXPECT_THAT(DifferencesAtTheEnd(), IsEmpty());
}

TEST_F(ReplayTest, LeavesOutTheTimeOfTheCharactersWhenItIsFast)
{
    Play(kTwoPages, Pace::Fast);
    EXPECT_EQ(Say("}"), "0:!");
    EXPECT_EQ(Say("a00000\r"), "50458:41 42\r\n"); // 66.5 ms less 14 characters
}

TEST_F(ReplayTest, TakesAFrameInPieces)
{
    Play(kTwoPages, Pace::Fast);
    EXPECT_EQ(Say("}"), "0:!");
    EXPECT_EQ(Say("a00"), "");
    EXPECT_THAT(Say("000\r"), HasSubstr("41 42"));
    EXPECT_THAT(differences, IsEmpty());
}

TEST_F(ReplayTest, KeepsAnAnswerThatCameInTwoForOneWhenNothingWasBetween)
{
    Play("     0.000000  manager  }\n     0.003000  unit     !\n     0.004100  unit     !\n",
         Pace::Fast);
    EXPECT_EQ(Say("}"), "0:!!");
}

TEST_F(ReplayTest, KeepsALateAnswerLateWhenItIsFast)
{
    Play("     0.000000  manager  }\n     0.702292  unit     !\n", Pace::Fast);
    EXPECT_EQ(Say("}"), "700000:!");
}

TEST_F(ReplayTest, GivesABreakAsTheZeroByteOfAPort)
{
    Play("     0.000000  manager  }\n     0.001000  unit     (break)\n", Pace::Fast);
    EXPECT_EQ(Say("}"), std::string("0:\0", 3));
}

TEST_F(ReplayTest, GoesOnWhereTheRecordHasTheSameWords)
{
    Play(kTwoPages, Pace::Fast);
    EXPECT_EQ(Say("}"), "0:!");
    EXPECT_THAT(Say("a00010\r"), HasSubstr("43 44"));
    ASSERT_EQ(differences.size(), 1U);
    EXPECT_THAT(differences.front(),
                HasSubstr("manager  a00000\\r, the manager says \"a00010\\r\""));
    EXPECT_THAT(DifferencesAtTheEnd(), testing::SizeIs(1));
}

TEST_F(ReplayTest, IsSilentOnWordsThatTheRecordDoesNotHave)
{
    Play(kTwoPages, Pace::Fast);
    EXPECT_EQ(Say("}"), "0:!");
    EXPECT_EQ(Say("a1D000\r"), "");
    ASSERT_EQ(differences.size(), 1U);
    EXPECT_THAT(Say("a00000\r"), HasSubstr("41 42"));
    EXPECT_EQ(differences.size(), 1U);
}

TEST_F(ReplayTest, ReportsAManagerThatStopsEarlyOrBreaksOff)
{
    Play(kTwoPages, Pace::Fast);
    Say("}");
    Say("a0");
    EXPECT_THAT(DifferencesAtTheEnd(),
                ElementsAre(HasSubstr("broke off after \"a0\""),
                            HasSubstr("the record goes on with      0.003500  manager")));
}

TEST_F(ReplayTest, ReportsAManagerThatGoesOnAfterTheRecord)
{
    Play("     0.000000  manager  }\n     0.001000  unit     !\n", Pace::Fast);
    Say("}");
    EXPECT_EQ(Say("H\r"), "");
    EXPECT_THAT(
        DifferencesAtTheEnd(),
        ElementsAre(HasSubstr("the record has come to its end, the manager says \"H\\r\"")));
}

} // namespace
} // namespace tarvex::unit
