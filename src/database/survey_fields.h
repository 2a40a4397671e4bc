#pragma once

#include "database/value.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tarvex
{

/// The table of survey rows, one row a tube.
inline constexpr std::string_view kSurveyTable = "tar_vex";

/// Slots of a row for readings, `l0` to `l25`.
inline constexpr int kSlotCount = 26;

/// The fields of a survey row in the order of the table, named in UTF-8. All hold text of fixed
/// width but `nlet`, which holds a number or two digits, and the transfer mark `b`.
inline constexpr std::array<std::string_view, 35> kSurveyFields = {
    "cliente", "cantiere", "tubo", "profondità", "passo", "guide", "nord", "nlet", "l0",
    "l1",      "l2",       "l3",   "l4",         "l5",    "l6",    "l7",   "l8",   "l9",
    "l10",     "l11",      "l12",  "l13",        "l14",   "l15",   "l16",  "l17",  "l18",
    "l19",     "l20",      "l21",  "l22",        "l23",   "l24",   "l25",  "b"};

/// The field that keeps numbers and texts apart.
inline constexpr std::string_view kReadoutField = "nlet";

/// The transfer mark.
inline constexpr std::string_view kMarkField = "b";

/// The name of slot `slot`, 0 to 25.
std::string_view SlotName(int slot);

/// The index of `name` in kSurveyFields, without regard to the case of A to Z. Fails when it is no
/// field.
std::size_t FieldIndex(std::string_view name);

/// What the field of that index keeps of `value`: a number stays one in `nlet` only, elsewhere it
/// becomes its plain form.
Value StoredForm(std::size_t field, const Value& value);

/// `text` with the letters a to z, and no others, as capitals: two texts that differ in nothing
/// else are the same to a look-up.
std::string Folded(std::string_view text);

} // namespace tarvex
