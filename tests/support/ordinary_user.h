#pragma once

#include <filesystem>
#include <sys/types.h>
#include <vector>

namespace tarvex::tests
{

/// While it lives the test is no longer the machine's administrator, whom no permission stops.
/// Nothing changes for a test that is an ordinary user's from the start.
class OrdinaryUser
{
public:
    OrdinaryUser();

    /// Lets everybody read `folder` first.
    explicit OrdinaryUser(const std::filesystem::path& folder);

    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    void BecomeOrdinary();

    bool changed_ = false;
    std::vector<gid_t> groups_; ///< the administrator's
};

} // namespace tarvex::tests
