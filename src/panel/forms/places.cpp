#include "panel/forms/places.h"

#include "core/code_page.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <sstream>
#include <string>
#include <utility>

namespace tarvex::panel
{

namespace
{
constexpr std::array kRemovableMedia{"/media", "/run/media", "/mnt"};

bool LiesIn(const std::filesystem::path& folder, const std::filesystem::path& above)
{
    return std::mismatch(above.begin(), above.end(), folder.begin(), folder.end()).first ==
           above.end();
}

bool IsOctal(char character)
{
    return character >= '0' && character <= '7';
}

/// The table writes blanks and other separators as a backslash and three octal digits.
std::string Unescaped(const std::string& field)
{
    std::string text;
    for (std::size_t at = 0; at < field.size(); ++at) {
        if (field[at] == '\\' && at + 3 < field.size() && IsOctal(field[at + 1]) &&
            IsOctal(field[at + 2]) && IsOctal(field[at + 3])) {
            text += static_cast<char>((field[at + 1] - '0') * 64 + (field[at + 2] - '0') * 8 +
                                      (field[at + 3] - '0'));
            at += 3;
        } else {
            text += field[at];
        }
    }
    return text;
}

void AddOnce(std::vector<Place>& places, std::filesystem::path name,
             const std::filesystem::path& folder)
{
    const bool known = std::any_of(places.begin(), places.end(),
                                   [&](const Place& place) { return place.folder == folder; });
    if (!folder.empty() && !known) places.push_back({std::move(name), folder});
}
} // namespace

std::vector<std::filesystem::path> MountPoints(std::istream& mountTable)
{
    constexpr int kFieldsBefore = 4; // two numbers, the device, the root inside it
    std::vector<std::filesystem::path> points;
    for (std::string line; std::getline(mountTable, line);) {
        std::istringstream fields(line);
        std::string field;
        for (int skipped = 0; skipped < kFieldsBefore; ++skipped)
            fields >> field;
        if (fields >> field) points.emplace_back(Unescaped(field));
    }
    return points;
}

std::vector<Place> UnixPlaces(const std::filesystem::path& startFolder,
                              const std::filesystem::path& home,
                              const std::vector<std::filesystem::path>& mountPoints)
{
    std::vector<Place> places;
    AddOnce(places, "Start folder", startFolder);
    AddOnce(places, "Home", home);
    for (const auto& point : mountPoints) {
        const bool removable = std::any_of(kRemovableMedia.begin(), kRemovableMedia.end(),
                                           [&](const char* media) { return LiesIn(point, media); });
        if (removable) AddOnce(places, point.filename(), point);
    }
    AddOnce(places, "File system", "/");
    return places;
}

std::vector<Place> DrivePlaces(std::string_view letters)
{
    std::vector<Place> places;
    for (const char letter : letters) {
        const std::string name{code_page::Capital(letter), ':'};
        const auto small = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
        places.push_back({name, std::string{small, ':', '\\'}});
    }
    std::stable_partition(places.begin(), places.end(),
                          [](const Place& place) { return place.name == "C:"; });
    return places;
}

std::size_t NearestPlace(const std::vector<Place>& places, const std::filesystem::path& folder)
{
    std::size_t nearest = 0;
    std::ptrdiff_t depth = -1;
    for (std::size_t index = 0; index < places.size(); ++index) {
        const auto& place = places[index].folder;
        const auto placeDepth = std::distance(place.begin(), place.end());
        if (LiesIn(folder, place) && placeDepth > depth) {
            nearest = index;
            depth = placeDepth;
        }
    }
    return nearest;
}

} // namespace tarvex::panel
