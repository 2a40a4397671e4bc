#pragma once

#include "core/block_header.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvex
{

/// One condition of a filter: the field of that name holds that text.
struct Condition {
    std::string field;
    std::string text;

    friend bool operator==(const Condition&, const Condition&) = default;
};

/// The text of a criterion that a row meets by meeting all conditions: [a] = 'x' and [b] = 'y'. No
/// field name holds a bracket or an apostrophe; the texts may hold anything, as they are.
std::string MakeCriterion(const std::vector<Condition>& conditions);

/// The way back: the conditions of a criterion in that form; none for an empty one.
/// Apostrophes are not doubled: a text ends only where an apostrophe is followed by the start of
/// the next condition, or by the end, so that the client DELL'ORO is found. Fails on any other
/// form.
std::vector<Condition> ParseCriterion(std::string_view criterion);

/// The criterion that finds the row of a header's tube:
/// [cliente] = 'ROSSI   ' and [cantiere] = 'DIGA A  ' and [Tubo] = 'T1  '
/// with the three texts at their full widths, blanks and all.
std::string TubeCriterion(const BlockHeader& header);

} // namespace tarvex
