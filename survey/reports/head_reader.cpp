#include "survey/reports/head_reader.h"

#include <algorithm>
#include <set>

namespace tarvex::survey
{

namespace
{
struct Line {
    const HeadField* field = nullptr;
    std::string_view value;
};

/// The label that a line begins with, whatever blanks are around it.
Line LineOf(std::string_view text)
{
    const auto end = text.find(';');
    if (end == std::string_view::npos) return {};
    auto label = Trimmed(text.substr(0, end));
    if (!label.ends_with(':')) return {};
    label = Trimmed(label.substr(0, label.size() - 1));
    const auto* const field = std::ranges::find_if(kHeadFields, [&](const HeadField& candidate) {
        return Lower(candidate.label) == Lower(label);
    });
    if (field == kHeadFields.end()) return {};
    return {field, Trimmed(text.substr(end + 1))};
}

void NoteLayout(const std::vector<Record>& records, AnomalyList& anomalies)
{
    const auto changed = std::ranges::find(records, false, &Record::asWritten);
    if (changed != records.end())
        anomalies.AddHarmless(*changed,
                              "from here on the records are not as long as the manager's");
}
} // namespace

bool IsHeadReport(const std::vector<Record>& records)
{
    const auto first = std::ranges::find_if(
        records, [](const Record& record) { return !Trimmed(record.text).empty(); });
    return first != records.end() && LineOf(first->text).field != nullptr;
}

Contents ReadHeadReport(const std::vector<Record>& records, Encoding encoding,
                        AnomalyList& anomalies)
{
    Contents contents;
    contents.kind = FileKind::HeadReport;
    std::set<const HeadField*> seen;
    for (const auto& record : records) {
        if (Trimmed(record.text).empty()) continue;
        const auto line = LineOf(record.text);
        if (line.field == nullptr)
            anomalies.Add(record, "this line does not belong in a head report");
        else if (!seen.insert(line.field).second)
            anomalies.Add(record, '"' + std::string(line.field->label) + "\" comes again");
        else
            contents.head.*(line.field->value) = Readable(line.value, encoding);
    }
    for (const auto& field : kHeadFields)
        if (!seen.contains(&field))
            anomalies.Add(records.back(),
                          "the line \"" + std::string(field.label) + "\" is missing");
    NoteLayout(records, anomalies);
    return contents;
}

} // namespace tarvex::survey
