#include "unit/frame_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

namespace tarvex::unit
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = Heard::Kind;
using namespace std::chrono_literals;

const Heard kWake{Kind::Wake, "}"};

std::vector<Heard> TakeAll(FrameReader& reader, std::string_view bytes, Time now = 0s)
{
    std::vector<Heard> all;
    for (const char byte : bytes)
        for (auto& heard : reader.Take(byte, now))
            all.push_back(std::move(heard));
    return all;
}

std::vector<Heard> HeardFrom(std::string_view bytes)
{
    FrameReader reader;
    return TakeAll(reader, bytes);
}

Heard Frame(std::string bytes)
{
    return {Kind::Frame, std::move(bytes)};
}
Heard Noise(std::string bytes)
{
    return {Kind::Noise, std::move(bytes)};
}

const std::string kHeaderFrame = "C0A000CLIENT11SITE0000T   000002+00000DDMMYYhhmmss";
const std::string kCalibrationFrame = "D0A000+1.0000+0.0000+1.0000+0.00000";

TEST(FrameReader, HearsAWakeAtOnce)
{
    EXPECT_THAT(HeardFrom("}"), ElementsAre(kWake));
}

TEST(FrameReader, HearsEachOfSeveralWakes)
{
    EXPECT_THAT(HeardFrom("}}}"), ElementsAre(kWake, kWake, kWake));
}

TEST(FrameReader, HearsEveryFrameAfterAWakeWithoutItsCarriageReturn)
{
    for (const std::string& frame :
         {std::string("a0A030"), std::string("H"), std::string("c"), std::string("G140423101530"),
          std::string("b000F05"), std::string("b000F500"), std::string("G2310"), kHeaderFrame,
          kCalibrationFrame})
        EXPECT_THAT(HeardFrom("}" + frame + "\r"), ElementsAre(kWake, Frame(frame)));
}

TEST(FrameReader, PassesOverAFrameWithoutAWake)
{
    EXPECT_THAT(HeardFrom("a00000\r"), IsEmpty());
    EXPECT_THAT(HeardFrom("a00000\r}"), ElementsAre(Noise("a00000\r"), kWake));
}

TEST(FrameReader, HearsOneFrameAWake)
{
    EXPECT_THAT(HeardFrom("}H\rH\r}"), ElementsAre(kWake, Frame("H"), Noise("H\r"), kWake));
}

TEST(FrameReader, PassesOverGarbageBetweenWakeAndFrame)
{
    EXPECT_THAT(HeardFrom("}\r\nxA!H\r"), ElementsAre(kWake, Noise("\r\nxA!"), Frame("H")));
}

TEST(FrameReader, StartsAgainAtAWakeInTheMiddleOfAFrame)
{
    EXPECT_THAT(HeardFrom("}a000}a00010\r"),
                ElementsAre(kWake, Noise("a000"), kWake, Frame("a00010")));
    EXPECT_THAT(HeardFrom("}C00}H\r"), ElementsAre(kWake, Noise("C00"), kWake, Frame("H")));
}

TEST(FrameReader, KeepsBraceAndCarriageReturnInsideAHeadersText)
{
    auto frame = kHeaderFrame;
    frame.replace(6, 8, "}A\r}B\r\n}");
    frame.back() = '}';
    EXPECT_THAT(HeardFrom("}" + frame + "\r}"), ElementsAre(kWake, Frame(frame), kWake));
}

TEST(FrameReader, KeepsBraceAndCarriageReturnInsideACalibrationsText)
{
    auto frame = kCalibrationFrame;
    frame.replace(6, 2, "\r}");
    EXPECT_THAT(HeardFrom("}" + frame + "\r"), ElementsAre(kWake, Frame(frame)));
}

TEST(FrameReader, TakesABraceAfterAPauseForAWakeAlsoInsideAHeader)
{
    FrameReader reader;
    TakeAll(reader, "}C00000CLIENT\r", 0ms);
    EXPECT_THAT(TakeAll(reader, "}", 20ms), ElementsAre(Noise("C00000CLIENT\r"), kWake));
}

TEST(FrameReader, TakesABraceAfterAShorterPauseForText)
{
    FrameReader reader;
    TakeAll(reader, "}C00000CLIENT", 0ms);
    EXPECT_THAT(TakeAll(reader, "}", 19'999us), IsEmpty());
}

TEST(FrameReader, KeepsAFrameTogetherAcrossPauses)
{
    FrameReader reader;
    TakeAll(reader, "}a00", 0s);
    EXPECT_THAT(TakeAll(reader, "000\r", 5s), ElementsAre(Frame("a00000")));
}

TEST(FrameReader, PassesOverAHeaderThatIsTooLong)
{
    EXPECT_THAT(HeardFrom("}" + kHeaderFrame + "x\r}"),
                ElementsAre(kWake, Noise(kHeaderFrame + "x"), Noise("\r"), kWake));
}

TEST(FrameReader, EndsAFrameWithoutEndAndSleeps)
{
    const std::string endless(200, '0');
    EXPECT_THAT(HeardFrom("}a" + endless + "\r}"),
                ElementsAre(kWake, Noise("a" + endless.substr(0, 64)), Noise(endless.substr(0, 64)),
                            kWake));
}

TEST(FrameReader, ThatWasSentToSleepNeedsAnotherWake)
{
    FrameReader reader;
    TakeAll(reader, "}");
    reader.Sleep();
    EXPECT_THAT(TakeAll(reader, "H\r"), IsEmpty());
    EXPECT_THAT(TakeAll(reader, "}H\r"), ElementsAre(Noise("H\r"), kWake, Frame("H")));
}

} // namespace
} // namespace tarvex::unit
