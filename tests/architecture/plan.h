#pragma once

#include <string_view>
#include <vector>

namespace tarvex::tests
{

/// What the files of a folder may include besides their own folder and the standard library. An
/// entry that ends in "/" is a folder, any other a single header.
struct Room {
    std::string_view folder;
    std::vector<std::string_view> mayInclude;
    bool toolkit = false; ///< Qt and the system's own headers
};

/// The plan of the house: an arrow never points up. What is not in it belongs nowhere.
const std::vector<Room>& Plan();

/// Stands for all headers of the system in the list of the doors.
inline constexpr std::string_view kSystem = "the system";

/// The files, by the beginning of their paths, that alone include a header that no other may.
struct Door {
    std::string_view file;
    std::string_view header;
};

const std::vector<Door>& Doors();

/// The room that a path from the top of the project lies in: the innermost; null for none.
const Room* RoomOf(std::string_view path);

} // namespace tarvex::tests
