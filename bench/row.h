#pragma once

#include <cstdio>
#include <string>

namespace tarvex::bench
{

/// One line of the table that scripts/bench prints. What is not there is left out.
struct Row {
    std::string what;
    double measured = 0;
    std::string unit;
    std::string toReach;     ///< "<= 1.004" or ">= 0.9"; empty for what is only measured
    std::string peer = "-";  ///< what the best of the others needs for the same
    std::string limit = "-"; ///< what nobody can be better than
};

/// Prints it for scripts/bench: its fields with tabs between.
inline void Print(const Row& row)
{
    std::printf("%s\t%.4f\t%s\t%s\t%s\t%s\n", row.what.c_str(), row.measured, row.unit.c_str(),
                row.peer.c_str(), row.limit.c_str(), row.toReach.c_str());
    static_cast<void>(std::fflush(stdout));
}

/// A number as the table shows it.
inline std::string Shown(double value)
{
    char text[32];
    static_cast<void>(std::snprintf(text, sizeof text, "%.4f", value));
    return text;
}

} // namespace tarvex::bench
