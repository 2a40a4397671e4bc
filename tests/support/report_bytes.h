#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex::tests
{

/// `text` padded with blanks, or cut, to `width`.
std::string Padded(std::string_view text, std::size_t width);

/// A head report of those ten lines, with an empty one between any two.
std::string HeadReportOf(const std::vector<std::string>& tenLines);

/// Record 1 of a work file.
std::string TitleRecord();

/// Record 2 of a work file.
std::string BlankDataRecord();

/// The record of one depth: "001.5" and its four or eight readings, in the order of the columns;
/// columns without a reading hold NUL bytes.
std::string RowRecord(std::string_view depth, const std::vector<std::string>& readings);

/// A work file of those rows.
std::string WorkFileOf(const std::vector<std::string>& rows);

/// The data report of those rows, which come in the order of the work file.
std::string DataReportOf(const std::vector<std::string>& rows);

} // namespace tarvex::tests
