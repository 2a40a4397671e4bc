#include "support/ordinary_user.h"

#include <gtest/gtest.h>

#include <grp.h>
#include <unistd.h>

namespace tarvex::tests
{

namespace
{

constexpr uid_t kNobody = 65534;

std::vector<gid_t> OwnGroups()
{
    std::vector<gid_t> groups(static_cast<std::size_t>(::getgroups(0, nullptr)));
    EXPECT_EQ(::getgroups(static_cast<int>(groups.size()), groups.data()),
              static_cast<int>(groups.size()));
    return groups;
}

void LetEverybodyRead(const std::filesystem::path& folder)
{
    using std::filesystem::perms;
    std::filesystem::permissions(
        folder, perms::group_read | perms::group_exec | perms::others_read | perms::others_exec,
        std::filesystem::perm_options::add);
}

} // namespace

OrdinaryUser::OrdinaryUser()
{
    BecomeOrdinary();
}

OrdinaryUser::OrdinaryUser(const std::filesystem::path& folder)
{
    LetEverybodyRead(folder);
    BecomeOrdinary();
}

void OrdinaryUser::BecomeOrdinary()
{
    if (::geteuid() != 0) return;
    groups_ = OwnGroups();
    changed_ = ::setgroups(0, nullptr) == 0 && ::setegid(kNobody) == 0 &&
               ::setresuid(kNobody, kNobody, 0) == 0;
    EXPECT_TRUE(changed_);
}

OrdinaryUser::~OrdinaryUser()
{
    if (!changed_) return;
    EXPECT_EQ(::setresuid(0, 0, 0), 0);
    EXPECT_EQ(::setegid(0), 0);
    EXPECT_EQ(::setgroups(groups_.size(), groups_.data()), 0);
}

} // namespace tarvex::tests
