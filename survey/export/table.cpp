#include "survey/export/table.h"

#include "survey/model/depths.h"
#include "survey/model/readable.h"
#include "survey/model/text.h"

#include <algorithm>
#include <cstdlib>

namespace tarvex::survey
{

namespace
{
constexpr std::size_t kDepthWidth = 7;
constexpr std::size_t kCellWidth = 9;
constexpr std::size_t kLabelWidth = 13;

std::string RightOf(std::string text, std::size_t width)
{
    const auto used = Width(text);
    return used < width ? text.insert(0, width - used, ' ') : text;
}

std::string HeadLines(const Head& head)
{
    std::string lines;
    for (const auto& field : kHeadFields) {
        std::string label(field.label);
        label.resize(kLabelWidth, ' ');
        lines += label + head.*(field.value) + "\n";
    }
    return lines + "\n";
}

std::string TitleLine(std::size_t columns)
{
    auto line = RightOf("Depth", kDepthWidth);
    for (std::size_t i = 0; i < columns; ++i)
        line += RightOf(std::string(kColumnNames[i]), kCellWidth);
    return line + "\n";
}

std::string RowLine(const Row& row, std::size_t columns)
{
    auto line = RightOf(Metres(row.depth), kDepthWidth);
    for (std::size_t i = 0; i < columns; ++i)
        line += RightOf(row.readings[i] ? ReadingText(*row.readings[i]) : "-", kCellWidth);
    return line + "\n";
}
} // namespace

std::string ReadingText(const Reading& reading)
{
    constexpr std::size_t kDigits = 5;
    auto digits = std::to_string(std::abs(reading.counts));
    digits.insert(0, kDigits - std::min(digits.size(), kDigits), '0');
    return (reading.counts < 0 || reading.minusZero ? "-" : "+") + digits;
}

std::string LineOf(const Anomaly& anomaly)
{
    return anomaly.file + ", record " + std::to_string(anomaly.record) + ", offset " +
           std::to_string(anomaly.offset) + ": " + anomaly.text;
}

std::string TableOf(const Survey& survey)
{
    std::string text;
    for (const auto& file : survey.files)
        text += Readable(file, Encoding::Utf8) + "\n";
    if (survey.unfinished) text += "The work file of a download.\n";
    text += "\n";
    if (survey.head) text += HeadLines(*survey.head);
    const auto columns = ColumnsOf(survey);
    text += TitleLine(columns);
    for (const auto& row : survey.rows)
        text += RowLine(row, columns);
    if (!survey.anomalies.empty()) text += "\n";
    for (const auto& anomaly : survey.anomalies)
        text += LineOf(anomaly) + "\n";
    return text;
}

} // namespace tarvex::survey
