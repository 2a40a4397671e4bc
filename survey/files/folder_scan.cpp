#include "survey/files/folder_scan.h"

#include "survey/files/refusal.h"
#include "survey/files/report_names.h"
#include "survey/model/text.h"

#include <system_error>
#include <utility>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

constexpr int kDeepest = 16; // folders within each other

void Take(FoundReports& found, const fs::path& path)
{
    const auto name = Lower(path.filename().native());
    for (const auto& [ending, file] :
         {std::pair{kHeadEnding, &ReportPair::head}, std::pair{kDataEnding, &ReportPair::data}})
        if (name.ends_with(ending)) {
            const auto stem = name.substr(0, name.size() - ending.size());
            found[(path.parent_path() / stem).native()].*file = path;
        }
}
} // namespace

FoundReports FindReports(const fs::path& folder, const Progress& progress)
{
    std::error_code error;
    // A folder within it may well be another's; the folder itself was asked for.
    const fs::directory_iterator itself(folder, error);
    if (error) throw Refusal(Shown(folder) + " cannot be listed: " + error.message());
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied,
                                           error);
    FoundReports found;
    std::size_t seen = 0;
    for (const fs::recursive_directory_iterator end; entry != end; entry.increment(error)) {
        if (error) break;
        if (entry.depth() >= kDeepest) entry.disable_recursion_pending();
        Take(found, entry->path());
        if (progress && ++seen % kProgressSteps == 0) progress(seen);
    }
    return found;
}

} // namespace tarvex::survey
