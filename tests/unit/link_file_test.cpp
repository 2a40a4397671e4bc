#include "support/ordinary_user.h"
#include "support/temporary_folder.h"
#include "unit/program/link_file.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace tarvex::unit
{
namespace
{

namespace fs = std::filesystem;

/// In a folder of everybody's, where only its owner replaces a link that was left over.
TEST(LinkFileOfAnotherUser, StaysAloneInItsFolder)
{
    if (::geteuid() != 0) GTEST_SKIP() << "there is only one user";
    const tests::TemporaryFolder folder;
    fs::permissions(folder.Path(), fs::perms::all | fs::perms::sticky_bit);
    fs::create_symlink("/dev/pts/nowhere", folder / "com1");
    {
        const tests::OrdinaryUser user;
        EXPECT_THROW(LinkFile(folder / "com1", "/dev/pts/0"), std::runtime_error);
    }
    EXPECT_EQ(fs::read_symlink(folder / "com1"), "/dev/pts/nowhere");
    EXPECT_EQ(tests::NamesIn(folder.Path()), std::vector<std::string>{"com1"});
}

} // namespace
} // namespace tarvex::unit
