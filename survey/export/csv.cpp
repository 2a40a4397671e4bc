#include "survey/export/csv.h"

#include "survey/export/sheet.h"

#include "survey/model/number_text.h"

#include <algorithm>
#include <locale>
#include <stdexcept>

namespace tarvex::survey
{

namespace
{
std::string NumberText(const SheetCell& cell, char decimal)
{
    if (!cell.value) return "";
    auto text = Decimals(*cell.value, cell.decimals);
    std::ranges::replace(text, '.', decimal);
    return text;
}
} // namespace

CsvForm DesktopForm()
{
    CsvForm form;
    try {
        form.decimal = std::use_facet<std::numpunct<char>>(std::locale("")).decimal_point();
    } catch (const std::runtime_error&) {
        return form; // the language of the desktop is not installed
    }
    if (form.decimal == ',') form.separator = ';';
    return form;
}

std::string CsvOf(const Survey& survey, const CsvForm& form)
{
    const auto sheet = SheetOf(survey);
    std::string text;
    const auto end = [&] { text.replace(text.size() - 1, 1, "\r\n"); };
    for (const auto& title : sheet.titles)
        text += title + form.separator;
    end();
    for (const auto& row : sheet.rows) {
        for (const auto& cell : row)
            text += NumberText(cell, form.decimal) + form.separator;
        end();
    }
    return text;
}

} // namespace tarvex::survey
