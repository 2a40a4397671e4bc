#include "survey/reports/records.h"

#include <algorithm>

namespace tarvex::survey
{

namespace
{
struct Cut {
    std::size_t text;  ///< bytes of the record's text
    std::size_t whole; ///< with its end
    bool asWritten;
};

/// Bytes before the first end of a line, or all.
std::size_t LineLength(std::string_view rest)
{
    const auto* const end =
        std::ranges::find_if(rest, [](char byte) { return byte == '\r' || byte == '\n'; });
    return static_cast<std::size_t>(end - rest.begin());
}

Cut CutAtLineEnd(std::string_view rest)
{
    const auto text = LineLength(rest);
    auto whole = text;
    if (rest.substr(whole).starts_with("\r\n"))
        whole += 2;
    else if (whole < rest.size())
        whole += 1;
    return {text, whole, false};
}

Cut FirstCut(std::string_view rest, std::size_t width)
{
    const auto text = width - 2;
    if (rest.size() >= width && rest.substr(text, 2) == "\r " &&
        LineLength(rest.substr(0, text)) == text)
        return {text, width, true};
    return CutAtLineEnd(rest);
}
} // namespace

std::vector<Record> SplitRecords(std::string_view bytes, std::size_t width)
{
    std::vector<Record> records;
    std::size_t offset = 0;
    while (offset < bytes.size()) {
        const auto cut = FirstCut(bytes.substr(offset), width);
        records.push_back({records.size() + 1, offset, bytes.substr(offset, cut.text),
                           cut.asWritten, cut.whole > cut.text});
        offset += cut.whole;
    }
    return records;
}

} // namespace tarvex::survey
