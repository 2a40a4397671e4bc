#pragma once

#include "survey/files/listed_survey.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

namespace tarvex::survey
{

/// The surveys below a folder, in order of client, site, tube, then readout number, date and time.
/// Looks at names and head reports only, follows no link to a folder and skips what may not be
/// read. `progress` is called now and then with the number of files seen so far. Throws Refusal for
/// what is no folder.
std::vector<ListedSurvey> ListFolder(const std::filesystem::path& folder,
                                     const std::function<void(std::size_t)>& progress = {});

} // namespace tarvex::survey
