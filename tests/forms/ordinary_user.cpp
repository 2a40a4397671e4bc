#include "forms/ordinary_user.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace tarvex::tests
{

OrdinaryUser::OrdinaryUser()
{
    constexpr uid_t kNobody = 65534;
    if (geteuid() != 0) return;
    changed_ = setresuid(kNobody, kNobody, 0) == 0;
    EXPECT_TRUE(changed_);
}

OrdinaryUser::~OrdinaryUser()
{
    if (!changed_) return;
    EXPECT_EQ(setresuid(0, 0, 0), 0);
}

} // namespace tarvex::tests
