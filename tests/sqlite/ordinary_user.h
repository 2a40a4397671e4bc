#pragma once

#include <filesystem>

namespace tarvex::tests
{

/// While it lives the test is no longer the machine's administrator, whom no permission stops.
class OrdinaryUser
{
public:
    /// Lets everybody read `folder`.
    explicit OrdinaryUser(const std::filesystem::path& folder);
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool changed_ = false;
};

} // namespace tarvex::tests
