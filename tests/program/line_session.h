#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// What is kept beside the record of a line: what the operator does, and what comes of it.
///
///     # why the line is kept
///     unit --fault short@page2
///     close at the end
///     click Command3
///     ---
///     ended 0
///
/// "unit" lines are options of the simulated unit that was recorded, and say nothing to a replay.
/// All others before the rule are steps, in order, as in operator_steps.h, and:
///
///     close at the end    closes the panel once the record has been played, also inside a wait
struct LineSession {
    /// Throws std::runtime_error when there is no such file, or no rule in it.
    explicit LineSession(const std::filesystem::path& file);

    /// Keeps another outcome in the file.
    void Keep(const std::string& newOutcome) const;

    /// The file of the record beside it.
    std::filesystem::path Record() const;

    std::filesystem::path file;
    std::vector<std::string> remarks;
    std::vector<std::string> unitOptions;
    std::vector<std::string> steps;
    std::string outcome;
};

/// All sessions of a folder, by name.
std::vector<std::filesystem::path> SessionsIn(const std::filesystem::path& folder);

} // namespace tarvex::tests
