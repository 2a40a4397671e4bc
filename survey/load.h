#pragma once

#include "survey/survey.h"

#include <filesystem>
#include <optional>
#include <stdexcept>

namespace tarvex::survey
{

/// A file that is no report; what() is one sentence that names it.
class Refusal : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A survey from one of its files: a head report finds the data report in its folder, and the other
/// way round, whatever the case of the names' endings. A data report or work file alone is a survey
/// without a head; a head report alone is one without rows, which is an anomaly. Throws Refusal
/// when the file given is no report; a partner that is none is an anomaly.
Survey Load(const std::filesystem::path& path);

/// The file beside a report that belongs to it, if it is there: "…-num.dat" for "…-dat.dat" and the
/// other way round. Nothing for any other name.
std::optional<std::filesystem::path> PartnerOf(const std::filesystem::path& path);

/// A path for people, in UTF-8.
std::string Shown(const std::filesystem::path& path);

} // namespace tarvex::survey
