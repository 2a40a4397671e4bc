#include "survey/files/held_folder.h"

#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace tarvex::survey
{

HeldFolder::HeldFolder(const std::filesystem::path& folder)
    : descriptor_(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC))
{
}

HeldFolder::~HeldFolder()
{
    if (descriptor_ >= 0) ::close(descriptor_);
}

std::filesystem::path HeldFolder::Alias() const
{
    if (descriptor_ < 0) return {};
    return "/proc/self/fd/" + std::to_string(descriptor_);
}

} // namespace tarvex::survey
