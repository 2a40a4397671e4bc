#pragma once

#include "survey/model/survey.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvex::survey
{

/// A number of a table and how it is written; nothing where there is none.
struct SheetCell {
    std::optional<double> value;
    int decimals = 0;
};

/// A survey as a table of numbers: depth, readings, sums and half differences.
struct Sheet {
    std::vector<std::string> titles;
    std::vector<std::vector<SheetCell>> rows;
};

/// The table of a survey: its columns of readings, two or four guides of them, and a row a depth.
Sheet SheetOf(const Survey& survey);

} // namespace tarvex::survey
