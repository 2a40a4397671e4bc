#include "unit/tap/marked_bytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::unit
{
namespace
{

using testing::ElementsAre;
using Kind = Received::Kind;

TEST(MarkedBytes, LeavesOrdinaryBytesTogether)
{
    EXPECT_THAT(MarkedBytes().Take(std::string("a\0b", 3)),
                ElementsAre(Received{Kind::Bytes, std::string("a\0b", 3)}));
}

TEST(MarkedBytes, TakesADoubledMarkForTheByteItself)
{
    EXPECT_THAT(MarkedBytes().Take("a\xFF\xFF"
                                   "b"),
                ElementsAre(Received{Kind::Bytes, "a\xFF"
                                                  "b"}));
}

TEST(MarkedBytes, DistinguishesADamagedCharacterFromABreak)
{
    EXPECT_THAT(MarkedBytes().Take(std::string("x\xFF\0A\xFF\0\0y", 8)),
                ElementsAre(Received{Kind::Bytes, "x"}, Received{Kind::Damaged, "A"},
                            Received{Kind::Break, std::string(1, '\0')},
                            Received{Kind::Bytes, "y"}));
}

TEST(MarkedBytes, PutsAMarkTogetherThatWasCutAnywhere)
{
    const std::string marked("x\xFF\0\0\xFF\xFFy", 7);
    for (std::size_t cut = 0; cut <= marked.size(); ++cut) {
        MarkedBytes marks;
        std::string plain;
        int breaks = 0;
        for (const auto& piece : {marked.substr(0, cut), marked.substr(cut)}) {
            for (const auto& received : marks.Take(piece)) {
                breaks += received.kind == Kind::Break ? 1 : 0;
                plain += received.bytes;
            }
        }
        EXPECT_EQ(plain, std::string("x\0\xFFy", 4)) << cut;
        EXPECT_EQ(breaks, 1) << cut;
    }
}

} // namespace
} // namespace tarvex::unit
