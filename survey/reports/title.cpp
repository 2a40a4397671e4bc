#include "survey/reports/title.h"

#include "survey/model/text.h"

namespace tarvex::survey
{

namespace
{
constexpr std::string_view kTitle = "depth;a1;b1;a3;b3;a2;b2;a4;b4";
} // namespace

bool IsTitle(const Record& record)
{
    const auto text = Trimmed(record.text);
    return text.size() == kTitle.size() && Lower(text) == kTitle;
}

Title FindTitle(const std::vector<Record>& records)
{
    Title title;
    for (const auto& record : records) {
        if (!IsTitle(record)) continue;
        if (title.count == 0) title.first = record.number;
        ++title.count;
    }
    return title;
}

} // namespace tarvex::survey
