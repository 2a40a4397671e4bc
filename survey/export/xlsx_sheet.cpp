#include "survey/export/xlsx_sheet.h"

namespace tarvex::survey
{

XlsxSheet::XlsxSheet(lxw_workbook* book, const char* name)
    : sheet_(workbook_add_worksheet(book, name)), bold_(workbook_add_format(book))
{
    format_set_bold(bold_);
}

void XlsxSheet::Text(const std::string& text)
{
    worksheet_write_string(sheet_, row_, column_++, text.c_str(), nullptr);
}

void XlsxSheet::Title(const std::string& text)
{
    worksheet_write_string(sheet_, row_, column_++, text.c_str(), bold_);
}

void XlsxSheet::Number(const std::optional<double>& value)
{
    if (value) worksheet_write_number(sheet_, row_, column_, *value, nullptr);
    ++column_;
}

void XlsxSheet::NextRow()
{
    ++row_;
    column_ = 0;
}

void XlsxSheet::FreezeTitles()
{
    worksheet_freeze_panes(sheet_, 1, 1);
}

void XlsxSheet::SetWidth(lxw_col_t last, double width)
{
    worksheet_set_column(sheet_, 0, last, width, nullptr);
}

} // namespace tarvex::survey
