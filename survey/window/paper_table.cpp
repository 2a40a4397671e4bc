#include "survey/window/paper_parts.h"

#include "survey/export/sheet.h"
#include "survey/window/window_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tarvex::survey
{

void DrawTable(Paper& paper, const Survey& survey)
{
    constexpr double kCell = 36;    // at a font of 8
    constexpr double kLargest = 10; // height of a row
    const auto columns = ColumnsOf(survey) + 1;
    const double room = paper.Height() - kFootHeight - paper.Down() - kLineHeight;
    const auto blocks = static_cast<std::size_t>(
        std::max(1.0, std::floor(paper.Width() / (kCell * static_cast<double>(columns)))));
    const auto rows = (survey.rows.size() + blocks - 1) / blocks + 1;
    const double height =
        std::min(kLargest, room / static_cast<double>(std::max<std::size_t>(rows, 1)));
    const auto table = SheetOf(survey);
    paper.SetFont(std::min(8.0, height * 0.9));
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const auto block = i / (rows - 1);
        const auto line = i % (rows - 1);
        const double left = static_cast<double>(block) * kCell * static_cast<double>(columns);
        for (std::size_t column = 0; column < columns; ++column) {
            const double x = left + kCell * static_cast<double>(column);
            if (line == 0) paper.TextAt(x, paper.Down() + height, Text(table.titles[column]));
            const auto& cell = table.rows[i][column];
            const double y = paper.Down() + height * static_cast<double>(line + 2);
            paper.TextAt(x, y,
                         cell.value ? QString::number(*cell.value, 'f', cell.decimals)
                                    : QStringLiteral("-"));
        }
    }
}

} // namespace tarvex::survey
