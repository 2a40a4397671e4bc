#pragma once

#include "survey/survey.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tarvex::survey
{

/// A survey in a folder, by its head alone.
struct ListedSurvey {
    std::filesystem::path path; ///< the head report, or the data report where there is no other
    Head head;                  ///< from the file's name where there is no head report
    bool hasHead = true;
    bool hasData = true;

    bool operator==(const ListedSurvey&) const = default;
};

/// The surveys below a folder, in order of client, site, tube, then readout number, date and time.
/// Looks at names and head reports only, follows no link to a folder and skips what may not be
/// read. `progress` is called now and then with the number of files seen so far. Throws Refusal for
/// what is no folder.
std::vector<ListedSurvey> ListFolder(const std::filesystem::path& folder,
                                     const std::function<void(std::size_t)>& progress = {});

/// For a terminal: clients, sites, tubes, and one line a reading.
std::string TextOf(const std::vector<ListedSurvey>& surveys);

} // namespace tarvex::survey
