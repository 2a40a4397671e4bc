#include "survey/files/report_names.h"

#include "survey/model/readable.h"
#include "survey/model/text.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

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
} // namespace

std::string Shown(const fs::path& path)
{
    return Readable(path.native(), Encoding::Utf8);
}

std::string StemOf(const fs::path& path)
{
    auto name = Lower(path.filename().native());
    for (const auto& ending : {kHeadEnding, kDataEnding})
        if (name.ends_with(ending)) name.resize(name.size() - ending.size());
    return name;
}

bool AreOfOneSurvey(const fs::path& one, const fs::path& other)
{
    if (one == other) return true;
    if (StemOf(one) != StemOf(other)) return false;
    std::error_code error;
    const auto folder = [](const fs::path& path) {
        return path.has_parent_path() ? path.parent_path() : fs::path(".");
    };
    return fs::equivalent(folder(one), folder(other), error);
}

std::optional<fs::path> PartnerOf(const fs::path& path)
{
    const auto name = PartnerName(path.filename().native());
    if (name.empty()) return std::nullopt;
    const auto folder = path.parent_path();
    for (const auto& candidate : {name, InCapitals(name)})
        if (Exists(folder / candidate)) return folder / candidate;
    // Another spelling, as "-Num.Dat": the folder is looked through.
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end;
         !error && entry != end; entry.increment(error))
        if (Lower(entry->path().filename().native()) == Lower(name))
            return folder / entry->path().filename();
    return std::nullopt;
}

} // namespace tarvex::survey
