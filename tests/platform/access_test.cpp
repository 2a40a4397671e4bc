#include "platform/device_access.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;
using platform::AccessTo;
using platform::DeviceAccess;

/// A file of the test's own stands for a device: only its owner, group and mode matter.
class Access : public ::testing::Test
{
protected:
    Access() { WriteFile(device, ""); }

    /// The group that `device` belongs to.
    static std::string OwnGroup()
    {
        const group* const own = ::getgrgid(::getegid());
        return own != nullptr ? own->gr_name : std::to_string(::getegid());
    }

    TemporaryFolder folder;
    fs::path device = folder / "ttyUSB0";
};

TEST_F(Access, IsPermittedToWhoMayReadAndWrite)
{
    const DeviceAccess access = AccessTo(device);
    EXPECT_TRUE(access.there);
    EXPECT_TRUE(access.permitted);
}

TEST_F(Access, NamesTheGroupWhoseMembersMayUseTheDevice)
{
    fs::permissions(device, fs::perms(0660));
    EXPECT_EQ(AccessTo(device).group, OwnGroup());
}

TEST_F(Access, NamesNoGroupWhenItsMembersMayNotWrite)
{
    fs::permissions(device, fs::perms(0640));
    EXPECT_EQ(AccessTo(device).group, "");
}

TEST_F(Access, SaysWhatIsNotThere)
{
    const DeviceAccess access = AccessTo(folder / "pulled");
    EXPECT_FALSE(access.there);
    EXPECT_FALSE(access.permitted);
}

TEST_F(Access, IsRefusedToAnotherUser)
{
    fs::permissions(device, fs::perms(0440));
    const pid_t child = ::fork();
    if (child == 0) {
        constexpr id_t kNobody = 65534;
        if (::getuid() == 0 &&
            (::setgroups(0, nullptr) != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) {
            ::_exit(2);
        }
        const DeviceAccess access = AccessTo(device);
        ::_exit(access.there && !access.permitted ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "2: no way to become another user";
}

} // namespace
} // namespace tarvex::tests
