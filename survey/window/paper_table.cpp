#include "survey/window/paper_parts.h"

#include "survey/export/sheet.h"
#include "survey/window/window_text.h"

#include <qcustomplot.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace tarvex::survey
{

namespace
{
TableForm FormOf(const Survey& survey, double width, double letters)
{
    const auto columns = ColumnsOf(survey) + 1;
    const double cell = letters * 4.4; // a sign and five digits, and room between
    const double across = width / (cell * static_cast<double>(columns) + letters);
    const auto blocks = static_cast<std::size_t>(std::max(1.0, std::floor(across)));
    const auto rows = (survey.rows.size() + blocks - 1) / blocks;
    return {columns, rows, letters, cell, letters * 1.25};
}

std::set<int> NamedDepths(const Verdict& verdict)
{
    std::set<int> depths;
    for (const auto& finding : verdict.findings)
        depths.insert(finding.depths.begin(), finding.depths.end());
    return depths;
}

QString CellText(const SheetCell& cell)
{
    return cell.value ? QString::number(*cell.value, 'f', cell.decimals) : QStringLiteral("-");
}

/// Draws the blocks of a table, cell by cell; numbers end in line.
class TablePen
{
public:
    TablePen(Paper& paper, const TableForm& form) : paper_(paper), form_(form) {}

    void Titles(std::size_t block, const std::vector<std::string>& titles)
    {
        paper_.SetFont(form_.letters, true);
        for (std::size_t column = 0; column < form_.columns; ++column)
            Cell(block, 0, column, Text(titles[column]));
        const double y = paper_.Down() + form_.line * 1.2;
        const double width = form_.cell * static_cast<double>(form_.columns);
        paper_.Painter().setPen(QPen(Qt::black, 0.4));
        paper_.Painter().drawLine(QLineF(Left(block), y, Left(block) + width, y));
    }

    void Row(std::size_t number, const std::vector<SheetCell>& cells, bool bold)
    {
        paper_.SetFont(form_.letters, bold);
        for (std::size_t column = 0; column < form_.columns; ++column)
            Cell(number / form_.rows, number % form_.rows + 1, column, CellText(cells[column]));
    }

private:
    double Left(std::size_t block) const
    {
        return static_cast<double>(block) *
               (form_.cell * static_cast<double>(form_.columns) + form_.letters);
    }

    void Cell(std::size_t block, std::size_t line, std::size_t column, const QString& text)
    {
        const double right = Left(block) + form_.cell * static_cast<double>(column + 1);
        paper_.TextAt(right - paper_.WidthOf(text),
                      paper_.Down() + form_.line * static_cast<double>(line + 1), text);
    }

    Paper& paper_;
    const TableForm& form_;
};
} // namespace

TableForm TableFormOf(const Survey& survey, double width, double height)
{
    constexpr double kLargest = 8.5;
    constexpr double kSmallest = 3;
    double letters = kLargest;
    while (letters > kSmallest && FormOf(survey, width, letters).Height() > height)
        letters -= 0.25;
    return FormOf(survey, width, letters);
}

void DrawTable(Paper& paper, const PictureSubject& subject, const TableForm& form)
{
    const auto table = SheetOf(subject.survey);
    const auto named = NamedDepths(subject.verdict);
    TablePen pen(paper, form);
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        if (i % form.rows == 0) pen.Titles(i / form.rows, table.titles);
        pen.Row(i, table.rows[i], named.contains(subject.survey.rows[i].depth));
    }
    paper.Skip(form.Height());
}

} // namespace tarvex::survey
