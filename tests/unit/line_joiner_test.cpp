#include "unit/tap/line_joiner.h"
#include "unit/tap/tap_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace tarvex::unit
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

LogLine Said(Speaker speaker, std::string bytes, Time at)
{
    return {at, speaker, std::move(bytes), {}};
}

TEST(LineJoiner, MakesALineOfAWakeAndOfItsAnswerAtOnce)
{
    LineJoiner joiner;
    EXPECT_THAT(joiner.Take(Speaker::Manager, "}", Time{1}),
                ElementsAre(Said(Speaker::Manager, "}", Time{1})));
    EXPECT_THAT(joiner.Take(Speaker::Unit, "!", Time{2}),
                ElementsAre(Said(Speaker::Unit, "!", Time{2})));
    EXPECT_EQ(joiner.NextDue(), std::nullopt);
}

TEST(LineJoiner, JoinsAPageThatComesInPieces)
{
    LineJoiner joiner;
    EXPECT_THAT(joiner.Take(Speaker::Unit, "41 ", Time{1}), IsEmpty());
    EXPECT_THAT(joiner.Take(Speaker::Unit, "42 \r", Time{9}), IsEmpty());
    EXPECT_THAT(joiner.Take(Speaker::Unit, "\n", Time{10}),
                ElementsAre(Said(Speaker::Unit, "41 42 \r\n", Time{10})));
}

TEST(LineJoiner, KeepsAWakeCharacterInsideAFrameInItsFrame)
{
    LineJoiner joiner;
    EXPECT_THAT(joiner.Take(Speaker::Manager, "C00000A}B\r", Time{1}),
                ElementsAre(Said(Speaker::Manager, "C00000A}B\r", Time{1})));
}

TEST(LineJoiner, CutsTwoFramesThatComeTogether)
{
    LineJoiner joiner;
    EXPECT_THAT(
        joiner.Take(Speaker::Manager, "}H\r", Time{1}),
        ElementsAre(Said(Speaker::Manager, "}", Time{1}), Said(Speaker::Manager, "H\r", Time{1})));
}

TEST(LineJoiner, EndsAPieceWhenTheOtherEndSpeaks)
{
    LineJoiner joiner;
    joiner.Take(Speaker::Unit, "41 4", Time{1});
    EXPECT_THAT(
        joiner.Take(Speaker::Manager, "}", Time{2}),
        ElementsAre(Said(Speaker::Unit, "41 4", Time{1}), Said(Speaker::Manager, "}", Time{2})));
}

TEST(LineJoiner, EndsAPieceAfterAPause)
{
    LineJoiner joiner;
    joiner.Take(Speaker::Unit, "?", Time{5});
    EXPECT_THAT(joiner.NextDue(), Optional(Time{5} + LineJoiner::kPause));
    EXPECT_THAT(joiner.TakeDue(Time{4} + LineJoiner::kPause), IsEmpty());
    EXPECT_THAT(joiner.TakeDue(Time{5} + LineJoiner::kPause),
                ElementsAre(Said(Speaker::Unit, "?", Time{5})));
    EXPECT_THAT(joiner.TakeRest(), IsEmpty());
}

TEST(LineJoiner, EndsAPieceWhenSomethingHappens)
{
    LineJoiner joiner;
    joiner.Take(Speaker::Unit, "41", Time{1});
    EXPECT_THAT(joiner.Note(Speaker::Unit, "hang-up", Time{2}),
                ElementsAre(Said(Speaker::Unit, "41", Time{1}),
                            LogLine{Time{2}, Speaker::Unit, {}, "hang-up"}));
}

TEST(TapLog, WritesEachLineAsItIsReadAgain)
{
    std::stringstream stream;
    TapLog log(stream);
    log.Happened(Speaker::Manager, "opens the port", Time{1});
    log.Passed(Speaker::Manager, "}", Time{2});
    log.Passed(Speaker::Unit, "?", Time{3});
    log.WriteDue(Time{4});
    log.Finish();
    EXPECT_THAT(ReadLog(stream),
                ElementsAre(LogLine{Time{1}, Speaker::Manager, {}, "opens the port"},
                            Said(Speaker::Manager, "}", Time{2}),
                            Said(Speaker::Unit, "?", Time{3})));
}

} // namespace
} // namespace tarvex::unit
