#pragma once

#include <string>
#include <vector>

namespace tarvex::tests
{

/// Libraries of the project that a folder's list of links names and its room may not include.
std::vector<std::string> LinkComplaints(const std::string& path, const std::string& list);

} // namespace tarvex::tests
