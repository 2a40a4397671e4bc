#include "database/criterion.h"

#include "core/failure.h"
#include "database/survey_fields.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

BlockHeader Header(std::string_view cliente, std::string_view cantiere, std::string_view tubo)
{
    BlockHeader header = DefaultHeader(0);
    header.cliente = cliente;
    header.cantiere = cantiere;
    header.tubo = tubo;
    return header;
}

TEST(TubeCriterion, HoldsTheThreeTextsAtTheirFullWidths)
{
    EXPECT_EQ(TubeCriterion(Header("ROSSI", "DIGA A", "T1")),
              "[cliente] = 'ROSSI   ' and [cantiere] = 'DIGA A  ' and [Tubo] = 'T1  '");
}

TEST(TubeCriterion, IsReadBackWhateverTheTextsHold)
{
    using namespace std::string_literals;
    const std::vector<std::string> texts = {
        "DELL'ORO", "''''''''",  "' and '", "A' and [", "'] = '", "[cl] = '",    "\0\0\0\0"s,
        "' or 1=1", "' and [x]", "] = ''",  "",         "\r\n\t", "\xE0\xE8\xEC"};
    for (const auto& cliente : texts) {
        for (const auto& tubo : texts) {
            const BlockHeader header = Header(cliente, tubo, tubo);
            EXPECT_THAT(ParseCriterion(TubeCriterion(header)),
                        ElementsAre(Condition{"cliente", header.cliente.Text()},
                                    Condition{"cantiere", header.cantiere.Text()},
                                    Condition{"Tubo", header.tubo.Text()}))
                << TubeCriterion(header);
        }
    }
}

TEST(MakeCriterion, IsReadBackWithAnyNumberOfConditions)
{
    const std::vector<Condition> all = {{"b", ""}, {"l25", "' and [b] ="}, {"Tubo", "O'"}};
    for (std::size_t count = 0; count <= all.size(); ++count) {
        const std::vector<Condition> some(all.begin(),
                                          all.begin() + static_cast<std::ptrdiff_t>(count));
        EXPECT_EQ(ParseCriterion(MakeCriterion(some)), some) << MakeCriterion(some);
    }
}

TEST(ParseCriterion, WhatItReadsMakesTheSameTextAgain)
{
    for (const auto* const criterion :
         {"", "[a] = 'x'", "[a] = 'x' or [b] = 'y'", "[a] = '' and [b] = ''", "[a] = 'x' and [b'",
          "[a] = 'O''"}) {
        EXPECT_EQ(MakeCriterion(ParseCriterion(criterion)), criterion);
    }
}

TEST(ParseCriterion, AnEmptyOneHasNoConditions)
{
    EXPECT_THAT(ParseCriterion(""), IsEmpty());
}

TEST(ParseCriterion, FailsOnAnyOtherForm)
{
    for (const auto* const criterion :
         {" ", "x", "[a]", "[a] = 'x", "[a] = x", "a = 'x'", "[] = 'x'", "[a] <> 'x'",
          "[a] = 'x' or [b] = 'y", "[a] = 'x' and", "[a] = 'x' and [b]", "[a]='x'", "[a] = '"}) {
        EXPECT_THROW(ParseCriterion(criterion), RunTimeFailure) << criterion;
    }
}

TEST(ParseCriterion, ATextEndsOnlyWhereAConditionOrTheEndFollows)
{
    EXPECT_THAT(ParseCriterion("[a] = 'x' or [b] = 'y'"),
                ElementsAre(Condition{"a", "x' or [b] = 'y"}));
    EXPECT_THAT(ParseCriterion("[a] = 'x' and [b] = 'y'"),
                ElementsAre(Condition{"a", "x"}, Condition{"b", "y"}));
    EXPECT_THAT(ParseCriterion("[a] = ''"), ElementsAre(Condition{"a", ""}));
    EXPECT_THAT(ParseCriterion("[a] = '' and [b] = ''"),
                ElementsAre(Condition{"a", ""}, Condition{"b", ""}));
    EXPECT_THAT(ParseCriterion("[a] = 'x' and [b'"), ElementsAre(Condition{"a", "x' and [b"}));
}

TEST(Folded, TurnsNothingButAToZIntoCapitals)
{
    for (int code = 0; code < 256; ++code) {
        const char byte = static_cast<char>(code);
        const char folded = code >= 'a' && code <= 'z' ? static_cast<char>(code - 32) : byte;
        EXPECT_EQ(Folded(std::string(3, byte)), std::string(3, folded)) << code;
    }
}

TEST(SurveyFields, SlotsFollowEachOther)
{
    for (int slot = 0; slot < kSlotCount; ++slot)
        EXPECT_EQ(SlotName(slot), "l" + std::to_string(slot));
}

TEST(SurveyFields, AreFoundByNameInAnyCase)
{
    for (std::size_t index = 0; index < kSurveyFields.size(); ++index) {
        EXPECT_EQ(FieldIndex(kSurveyFields[index]), index);
        EXPECT_EQ(FieldIndex(Folded(kSurveyFields[index])), index);
    }
    EXPECT_THROW(FieldIndex("l26"), RunTimeFailure);
    EXPECT_THROW(FieldIndex(""), RunTimeFailure);
}

} // namespace
} // namespace tarvex::tests
