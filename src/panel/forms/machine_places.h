#pragma once

#include "panel/forms/places.h"

#include <filesystem>
#include <vector>

namespace tarvex::panel
{

/// The places of this machine at this moment: DrivePlaces where it has drive letters, else
/// UnixPlaces.
std::vector<Place> MachinePlaces(const std::filesystem::path& startFolder);

} // namespace tarvex::panel
