#pragma once

#include "panel/forms/places.h"

#include <filesystem>
#include <vector>

namespace tarvex::panel
{

/// The places of this machine at this moment: its drives where it has drive letters, the drive of
/// the start folder first; else UnixPlaces.
std::vector<Place> MachinePlaces(const std::filesystem::path& startFolder);

} // namespace tarvex::panel
