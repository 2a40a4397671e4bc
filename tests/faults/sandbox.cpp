#include "faults/sandbox.h"

namespace tarvex::tests
{

Sandbox::Sandbox()
{
    for (const auto& folder : {start, reports, home})
        std::filesystem::create_directory(folder);
    // As a home of somebody's own is; the toolkit makes a place of its own beside any other.
    std::filesystem::permissions(home, std::filesystem::perms::owner_all);
}

} // namespace tarvex::tests
