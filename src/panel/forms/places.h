#pragma once

#include <cstddef>
#include <filesystem>
#include <istream>
#include <string_view>
#include <vector>

namespace tarvex::panel
{

/// A point from which the operator looks for a folder: one entry of a drive list.
struct Place {
    std::filesystem::path name; ///< as the list shows it, in the system's own characters
    std::filesystem::path folder;
};

/// The mount points in a mount table of the form of /proc/self/mountinfo, in its order. Read from
/// the table alone: asking each volume would wait for a server that is away.
std::vector<std::filesystem::path> MountPoints(std::istream& mountTable);

/// The places of a machine without drive letters: the start folder, which is the first unless it is
/// empty, the home folder, the volumes mounted where desktops put removable media, the whole file
/// system. A folder comes once.
std::vector<Place> UnixPlaces(const std::filesystem::path& startFolder,
                              const std::filesystem::path& home,
                              const std::vector<std::filesystem::path>& mountPoints);

/// The places of a machine with drive letters, "ACD" for three: the drive "C:" first, then the
/// others in the order given.
std::vector<Place> DrivePlaces(std::string_view letters);

/// The index of the place that `folder` lies in, the nearest one above it; 0 when none does.
std::size_t NearestPlace(const std::vector<Place>& places, const std::filesystem::path& folder);

} // namespace tarvex::panel
