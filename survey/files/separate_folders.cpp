#include "survey/files/separate_folders.h"

#include <algorithm>
#include <system_error>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

/// A folder that is not there keeps its place too.
fs::path Place(const fs::path& folder)
{
    std::error_code error;
    auto place = fs::weakly_canonical(fs::absolute(folder, error), error);
    return place.has_filename() || !place.has_relative_path() ? place : place.parent_path();
}

bool Holds(const fs::path& outer, const fs::path& inner)
{
    const auto end = std::ranges::mismatch(outer, inner).in1;
    return end == outer.end() || (std::next(end) == outer.end() && end->empty());
}
} // namespace

std::vector<fs::path> Separate(const std::vector<fs::path>& folders)
{
    std::vector<fs::path> kept;
    for (const auto& folder : folders) {
        const auto place = Place(folder);
        if (std::ranges::any_of(kept,
                                [&](const auto& other) { return Holds(Place(other), place); }))
            continue;
        std::erase_if(kept, [&](const auto& other) { return Holds(place, Place(other)); });
        kept.push_back(folder);
    }
    return kept;
}

} // namespace tarvex::survey
