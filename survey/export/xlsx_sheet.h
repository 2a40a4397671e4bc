#pragma once

#include <xlsxwriter.h>

#include <optional>
#include <string>

namespace tarvex::survey
{

/// Writes one sheet of a spreadsheet, row by row.
class XlsxSheet
{
public:
    /// Adds a sheet of that name to the book.
    XlsxSheet(lxw_workbook* book, const char* name);

    /// The next cell of the row.
    void Text(const std::string& text);
    /// The next cell, in bold.
    void Title(const std::string& text);
    /// The next cell, which stays empty without a value.
    void Number(const std::optional<double>& value);

    /// Goes to the first cell of the next row.
    void NextRow();

    /// Keeps the first row and the first column in view.
    void FreezeTitles();

    /// The width of the columns up to `last`, in characters.
    void SetWidth(lxw_col_t last, double width);

private:
    lxw_worksheet* sheet_;
    lxw_format* bold_;
    lxw_row_t row_ = 0;
    lxw_col_t column_ = 0;
};

} // namespace tarvex::survey
