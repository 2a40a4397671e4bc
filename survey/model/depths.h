#pragma once

#include <set>
#include <string>
#include <vector>

namespace tarvex::survey
{

/// The depths that a download of this tube gives, shallowest first, in tenths of a metre. The unit
/// keeps 240 at most, from the bottom up.
std::vector<int> ExpectedDepths(int depth, int step);

/// Whether the tube has depths above those, which the unit has no room for.
bool IsCutAbove(const std::vector<int>& expected, int step);

/// Tenths of a metre as metres with one decimal: "12.5".
std::string Metres(int tenths);

/// Depths as a list of metres, runs of three and more in a step as "4.0 to 6.5": "2.0, 4.0 to 6.5".
std::string DepthList(const std::vector<int>& depths, int step);

/// The smallest distance between two of the depths: the step that their runs are made of; 0 for a
/// single depth.
int SmallestStep(const std::set<int>& depths);

} // namespace tarvex::survey
