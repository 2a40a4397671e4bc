#include "survey/load.h"

#include "survey/reader.h"
#include "survey/report_file.h"
#include "survey/text.h"

#include <algorithm>
#include <system_error>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

constexpr std::string_view kHeadEnding = "-dat.dat";
constexpr std::string_view kDataEnding = "-num.dat";

Contents ReadFile(const fs::path& path)
{
    const auto file = ReadBytes(path);
    if (file.refusal.empty()) return Read(file.bytes);
    Contents contents;
    contents.refusal = file.refusal;
    return contents;
}

/// The name with its ending changed for the partner's, in small letters; empty for other names.
std::string PartnerName(const std::string& name)
{
    const auto lower = Lower(name);
    for (const auto& [own, other] :
         {std::pair{kHeadEnding, kDataEnding}, std::pair{kDataEnding, kHeadEnding}})
        if (lower.ends_with(own))
            return name.substr(0, name.size() - own.size()) + std::string(other);
    return {};
}

std::string InCapitals(std::string name)
{
    const auto ending = name.size() - kHeadEnding.size();
    std::transform(name.begin() + static_cast<std::ptrdiff_t>(ending), name.end(),
                   name.begin() + static_cast<std::ptrdiff_t>(ending), [](char letter) {
                       return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A')
                                                             : letter;
                   });
    return name;
}

bool Exists(const fs::path& path)
{
    std::error_code error;
    return fs::exists(path, error);
}

void Merge(Survey& survey, const fs::path& path, Contents contents)
{
    for (auto& anomaly : contents.anomalies) {
        anomaly.file = Shown(path.filename());
        survey.anomalies.push_back(std::move(anomaly));
    }
    if (contents.kind == FileKind::HeadReport) {
        survey.head = std::move(contents.head);
        survey.files.insert(survey.files.begin(), path.string());
        return;
    }
    survey.rows = std::move(contents.rows);
    survey.unfinished = contents.kind == FileKind::WorkFile;
    survey.files.push_back(path.string());
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
                   contents.refusal.empty() ? "it is not the report that its name tells"
                                            : contents.refusal);
}
} // namespace

std::string Shown(const fs::path& path)
{
    return Readable(path.string(), Encoding::Utf8);
}

std::optional<fs::path> PartnerOf(const fs::path& path)
{
    const auto name = PartnerName(path.filename().string());
    if (name.empty()) return std::nullopt;
    const auto folder = path.parent_path();
    for (const auto& candidate : {name, InCapitals(name)})
        if (Exists(folder / candidate)) return folder / candidate;
    // Another spelling, as "-Num.Dat": the folder is looked through.
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end;
         !error && entry != end; entry.increment(error))
        if (Lower(entry->path().filename().string()) == Lower(name))
            return folder / entry->path().filename();
    return std::nullopt;
}

Survey Load(const fs::path& path)
{
    auto contents = ReadFile(path);
    if (contents.kind == FileKind::None)
        throw Refusal(Shown(path) + " is no report: " + contents.refusal);
    Survey survey;
    const auto kind = contents.kind;
    Merge(survey, path, std::move(contents));
    AddPartner(survey, path, kind);
    return survey;
}

} // namespace tarvex::survey
