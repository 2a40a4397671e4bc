#pragma once

#include <filesystem>

namespace tarvex::unit
{

/// A symbolic link by which the manager finds the terminal, such as "com1" in its start folder. It
/// lives as long as its owner.
class LinkFile
{
public:
    /// Makes the link, in one step. A link that leads to a pseudo terminal or to nothing is left
    /// over from an earlier run and is replaced; anything else of that name throws
    /// std::runtime_error, as does a folder that cannot be written.
    LinkFile(std::filesystem::path path, const std::filesystem::path& target);

    /// Removes the link, unless somebody else has put another in its place.
    ~LinkFile();

    LinkFile(const LinkFile&) = delete;
    LinkFile& operator=(const LinkFile&) = delete;

private:
    std::filesystem::path path_;
    std::filesystem::path target_;
};

} // namespace tarvex::unit
