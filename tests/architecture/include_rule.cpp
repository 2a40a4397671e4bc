#include "architecture/include_rule.h"

#include <algorithm>
#include <regex>
#include <sstream>

namespace tarvex::tests
{
namespace
{

/// The room of a header of the project, as includes give it; null for any other.
const Room* RoomOfInclude(const std::string& header)
{
    const Room* room = RoomOf("src/" + header);
    return room != nullptr ? room : RoomOf(header);
}

bool IsOfTheStandardLibrary(std::string_view header)
{
    return header.find_first_not_of("abcdefghijklmnopqrstuvwxyz_0123456789") ==
           std::string_view::npos;
}

/// The toolkit's and the system's headers: a capital first, or a ".h" that is not the project's.
bool IsOfTheToolkit(std::string_view header, bool quoted)
{
    const bool capital = !header.empty() && header.front() >= 'A' && header.front() <= 'Z';
    return capital || (!quoted && header.ends_with(".h"));
}

/// What a single file may include besides what its room may.
bool IsDoor(const std::string& path, const std::string& header, bool quoted)
{
    return std::any_of(Doors().begin(), Doors().end(), [&](const Door& door) {
        if (!path.starts_with(door.file)) return false;
        return door.header == kSystem ? IsOfTheToolkit(header, quoted) : door.header == header;
    });
}

bool MayIncludeRoom(const Room& room, const Room& other, const std::string& header)
{
    if (&room == &other) return true;
    return std::any_of(room.mayInclude.begin(), room.mayInclude.end(),
                       [&](std::string_view allowed) {
                           return allowed == IncludedAs(other.folder) || allowed == header;
                       });
}

bool MayInclude(const Room& room, const std::string& path, const std::string& header, bool quoted)
{
    if (header.find("..") != std::string::npos || header.starts_with("/")) return false;
    if (const Room* other = RoomOfInclude(header)) return MayIncludeRoom(room, *other, header);
    if (IsDoor(path, header, quoted)) return true;
    if (IsOfTheToolkit(header, quoted)) return room.toolkit;
    if (quoted) return header.find('/') == std::string::npos; // in the file's own folder
    return IsOfTheStandardLibrary(header);
}

} // namespace

std::string IncludedAs(std::string_view folder)
{
    if (folder.starts_with("src/")) folder.remove_prefix(4);
    return std::string(folder) + "/";
}

std::vector<std::string> Complaints(const std::string& path, const std::string& source)
{
    const Room* room = RoomOf(path);
    if (room == nullptr) return {path + " lies in no room of the plan"};

    static const std::regex directive(R"(^\s*#\s*include\s*(.*)$)");
    static const std::regex readable(R"(^(["<])([^">]+)[">].*$)");
    std::vector<std::string> complaints;
    std::istringstream lines(source);
    for (std::string line; std::getline(lines, line);) {
        std::smatch found;
        if (!std::regex_match(line, found, directive)) continue;
        const std::string operand = found[1];
        std::smatch name;
        const bool allowed = std::regex_match(operand, name, readable) &&
                             MayInclude(*room, path, name[2].str(), name[1] == "\"");
        if (!allowed) complaints.push_back(path + " includes " + operand);
    }
    return complaints;
}

} // namespace tarvex::tests
