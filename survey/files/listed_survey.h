#pragma once

#include "survey/model/head.h"

#include <filesystem>

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

} // namespace tarvex::survey
