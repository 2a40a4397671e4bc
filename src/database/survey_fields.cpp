#include "database/survey_fields.h"

#include "core/failure.h"

#include <algorithm>

namespace tarvex
{

namespace
{

constexpr std::size_t kFirstSlot = 8;
static_assert(kSurveyFields[kFirstSlot] == "l0");
static_assert(kSurveyFields[kFirstSlot + kSlotCount - 1] == "l25");

char FoldedCharacter(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                : character;
}

bool SameName(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return FoldedCharacter(a) == FoldedCharacter(b); });
}

} // namespace

std::string_view SlotName(int slot)
{
    return kSurveyFields.at(kFirstSlot + static_cast<std::size_t>(slot));
}

std::size_t FieldIndex(std::string_view name)
{
    const auto* const found =
        std::find_if(kSurveyFields.begin(), kSurveyFields.end(),
                     [&](std::string_view field) { return SameName(field, name); });
    if (found == kSurveyFields.end()) throw RunTimeFailure("Item not found in this collection");
    return static_cast<std::size_t>(found - kSurveyFields.begin());
}

Value StoredForm(std::size_t field, const Value& value)
{
    const bool keptAsNumber = kSurveyFields.at(field) == kReadoutField;
    return value.Number() == nullptr || keptAsNumber ? value : Value(TextOf(value));
}

std::string Folded(std::string_view text)
{
    std::string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), FoldedCharacter);
    return folded;
}

} // namespace tarvex
