#include "survey/files/folder_scan.h"

#include "survey/files/refusal.h"
#include "survey/files/report_names.h"
#include "survey/model/text.h"

#include <deque>
#include <system_error>
#include <utility>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

constexpr int kDeepest = 16; // folders within each other

struct Level {
    fs::path folder;
    int depth;
};

/// A link to a folder is none: it could lead back.
bool IsWithin(const fs::directory_entry& entry)
{
    std::error_code gone;
    return !entry.is_symlink(gone) && entry.is_directory(gone);
}

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
    const fs::directory_iterator itself(folder, error);
    if (error) throw Refusal(Shown(folder) + " cannot be listed: " + error.message());
    FoundReports found;
    std::size_t seen = 0;
    // A folder within it may be another's, or gone by now, and is passed over: the others count.
    for (std::deque<Level> next{{folder, 0}}; !next.empty(); next.pop_front()) {
        fs::directory_iterator entry(next.front().folder, error);
        for (const fs::directory_iterator end; !error && entry != end; entry.increment(error)) {
            if (IsWithin(*entry) && next.front().depth < kDeepest)
                next.push_back({entry->path(), next.front().depth + 1});
            Take(found, entry->path());
            if (progress && ++seen % kProgressSteps == 0) progress(seen);
        }
    }
    return found;
}

} // namespace tarvex::survey
