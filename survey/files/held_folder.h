#pragma once

#include <filesystem>

namespace tarvex::survey
{

/// A folder that is held open, without reading it, as long as this object lives. So it has a second
/// name, which is plain text whatever its own is.
class HeldFolder
{
public:
    /// Opens it; one that cannot be opened is no failure.
    explicit HeldFolder(const std::filesystem::path& folder);
    ~HeldFolder();
    HeldFolder(const HeldFolder&) = delete;
    HeldFolder& operator=(const HeldFolder&) = delete;

    /// The second name; empty when the folder could not be opened.
    std::filesystem::path Alias() const;

private:
    int descriptor_;
};

} // namespace tarvex::survey
