#include "sqlite/ordinary_user.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace tarvex::tests
{

namespace
{
constexpr uid_t kNobody = 65534;
} // namespace

OrdinaryUser::OrdinaryUser(const std::filesystem::path& folder)
{
    if (::geteuid() != 0) return;
    using std::filesystem::perms;
    std::filesystem::permissions(
        folder, perms::group_read | perms::group_exec | perms::others_read | perms::others_exec,
        std::filesystem::perm_options::add);
    changed_ = ::seteuid(kNobody) == 0;
    EXPECT_TRUE(changed_);
}

OrdinaryUser::~OrdinaryUser()
{
    if (!changed_) return;
    EXPECT_EQ(::seteuid(0), 0);
}

} // namespace tarvex::tests
