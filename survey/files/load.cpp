#include "survey/files/load.h"

#include "survey/files/report_file.h"
#include "survey/reports/reader.h"

#include <utility>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

Contents ReadFile(const fs::path& path)
{
    const auto file = ReadBytes(path);
    if (file.refusal.empty()) return Read(file.bytes);
    Contents contents;
    contents.refusal = file.refusal;
    return contents;
}

Contents ReadReport(const fs::path& path)
{
    auto contents = ReadFile(path);
    if (contents.kind == FileKind::None)
        throw Refusal(Shown(path) + " is no report: " + contents.refusal);
    return contents;
}

void Merge(Survey& survey, const fs::path& path, Contents contents)
{
    for (auto& anomaly : contents.anomalies) {
        anomaly.file = Shown(path.filename());
        survey.anomalies.push_back(std::move(anomaly));
    }
    if (contents.kind == FileKind::HeadReport) {
        survey.head = std::move(contents.head);
        survey.files.insert(survey.files.begin(), path.native());
        return;
    }
    survey.rows = std::move(contents.rows);
    survey.unfinished = contents.kind == FileKind::WorkFile;
    survey.files.push_back(path.native());
}

void AddAnomaly(Survey& survey, const fs::path& path, std::string text)
{
    survey.anomalies.push_back({Shown(path.filename()), 1, 0, std::move(text), false});
}

void AddPartner(Survey& survey, const fs::path& path, FileKind kind)
{
    const auto partner = PartnerOf(path);
    if (!partner) {
        if (kind == FileKind::HeadReport)
            AddAnomaly(survey, path, "the data report that belongs to this file is missing");
        return;
    }
    auto contents = ReadFile(*partner);
    const bool fits = contents.kind != FileKind::None &&
                      (contents.kind == FileKind::HeadReport) != (kind == FileKind::HeadReport);
    if (fits)
        Merge(survey, *partner, std::move(contents));
    else
        AddAnomaly(survey, *partner,
                   contents.refusal.empty() ? "it is not the report that its name says"
                                            : contents.refusal);
}
} // namespace

void RequireReport(const fs::path& path)
{
    ReadReport(path);
}

Survey Load(const fs::path& path)
{
    auto contents = ReadReport(path);
    Survey survey;
    const auto kind = contents.kind;
    Merge(survey, path, std::move(contents));
    AddPartner(survey, path, kind);
    return survey;
}

} // namespace tarvex::survey
