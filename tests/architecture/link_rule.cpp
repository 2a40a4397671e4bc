#include "architecture/link_rule.h"

#include "architecture/include_rule.h"
#include "architecture/sources.h"

#include <algorithm>
#include <map>
#include <regex>

namespace tarvex::tests
{
namespace
{

/// The folder of each library of the project by its name, from the lists that make them.
const std::map<std::string, std::string>& FoldersOfLibraries()
{
    static const std::map<std::string, std::string> folders = [] {
        static const std::regex made(R"(tarvex_library\(\s*(\w+))");
        std::map<std::string, std::string> found;
        for (const std::string& list : FilesOfTheProject({"CMakeLists.txt"})) {
            const std::string text = Read(list);
            for (auto name = std::sregex_iterator(text.begin(), text.end(), made);
                 name != std::sregex_iterator(); ++name)
                found[(*name)[1].str()] = list;
        }
        return found;
    }();
    return folders;
}

/// Whether something in a room may include something of another.
bool MayLink(const Room& room, const Room& other)
{
    const std::string folder = IncludedAs(other.folder);
    return &room == &other ||
           std::any_of(room.mayInclude.begin(), room.mayInclude.end(),
                       [&](std::string_view allowed) {
                           return allowed == folder ||
                                  (!allowed.ends_with('/') && allowed.starts_with(folder));
                       });
}

} // namespace

std::vector<std::string> LinkComplaints(const std::string& path, const std::string& list)
{
    const Room* room = RoomOf(path);
    if (room == nullptr) return {path + " lies in no room of the plan"};

    static const std::regex library(R"(tarvex::(\w+))");
    std::vector<std::string> complaints;
    for (auto found = std::sregex_iterator(list.begin(), list.end(), library);
         found != std::sregex_iterator(); ++found) {
        const auto folder = FoldersOfLibraries().find((*found)[1].str());
        if (folder == FoldersOfLibraries().end()) continue; // a set of options
        const Room* other = RoomOf(folder->second);
        if (other == nullptr || !MayLink(*room, *other))
            complaints.push_back(path + " links " + found->str());
    }
    return complaints;
}

} // namespace tarvex::tests
