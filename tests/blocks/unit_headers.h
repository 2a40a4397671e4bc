#pragma once

#include "support/test_program.h"

#include <string>
#include <vector>

namespace tarvex::tests
{

/// The ten header values of block `number` (1 to 30) in a unit of which no two blocks share a text;
/// date and time with the two bytes after their six digits.
inline std::vector<std::string> UnitValues(int number)
{
    const std::string nn = (number < 10 ? "0" : "") + std::to_string(number);
    return {"UNIT  " + nn,
            "SITO_" + nn + "/",
            "#" + nn + "#",
            "1" + nn + "7",
            number % 2 == 0 ? "1" : "0",
            number % 3 == 0 ? "2" : "4",
            "-0" + nn,
            nn,
            nn + "1226XY",
            "22" + nn + "59Z" + std::string(1, '\0')};
}

inline void FillUnit(TestProgram& program)
{
    for (int number = 1; number <= 30; ++number)
        program.unit.SetHeader(number - 1, UnitValues(number));
}

/// The record that ten header values become, with the calibration bytes of `calibrated`.
inline std::string RecordOfValues(const std::vector<std::string>& values,
                                  std::string_view calibrated)
{
    constexpr std::size_t widths[] = {8, 8, 4, 4, 1, 1, 4, 2, 6, 6};
    std::string record;
    for (std::size_t field = 0; field < values.size(); ++field) {
        std::string text = values[field].substr(0, widths[field]);
        text.resize(widths[field] == 6 ? 8 : widths[field], ' '); // the boxes cut date and time
        record += text;
    }
    return record + std::string(calibrated.substr(48));
}

} // namespace tarvex::tests
