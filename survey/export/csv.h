#pragma once

#include "survey/model/survey.h"

#include <string>

namespace tarvex::survey
{

/// How numbers and columns are written.
struct CsvForm {
    char separator = ',';
    char decimal = '.';
};

/// What spreadsheets of the desktop's language take: its decimal sign, and ";" where that is ",".
CsvForm DesktopForm();

/// One line of titles, then one a depth: depth in metres, the readings, and of each pair the sum
/// and the half difference. What is missing is empty. Lines end in CR LF.
std::string CsvOf(const Survey& survey, const CsvForm& form);

} // namespace tarvex::survey
