#include "panel/forms/report_folder.h"

#include "core/failure.h"
#include "support/ordinary_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tarvex::tests
{

using panel::CanBeListed;
using panel::CanBeWritten;
using panel::IsFolderName;
using panel::MakeFolder;

TEST(MakeFolder, MakesOneFolder)
{
    const TemporaryFolder folder;
    MakeFolder(folder / "dati");
    EXPECT_TRUE(std::filesystem::is_directory(folder / "dati"));
}

TEST(MakeFolder, FailsWhenThereIsSomethingOrNothingAbove)
{
    const TemporaryFolder folder;
    WriteFile(folder / "file", "");
    EXPECT_THROW(MakeFolder(folder.Path()), RunTimeFailure);
    EXPECT_THROW(MakeFolder(folder / "file"), RunTimeFailure);
    EXPECT_THROW(MakeFolder(folder / "missing/dati"), RunTimeFailure);
}

TEST(IsFolderName, HoldsForOneNameAndNothingBeyondIt)
{
    for (const char* name : {"dati", "S 12", "...", "Скважина", ".hidden"})
        EXPECT_TRUE(IsFolderName(name)) << name;
    for (const char* name : {"", ".", "..", "a/b", "/a", "a/", "/"})
        EXPECT_FALSE(IsFolderName(name)) << name;
}

TEST(CanBeListed, HoldsForFoldersThatAreThere)
{
    const TemporaryFolder folder;
    WriteFile(folder / "file", "");
    EXPECT_TRUE(CanBeListed(folder.Path()));
    EXPECT_FALSE(CanBeListed(folder / "missing"));
    EXPECT_FALSE(CanBeListed(folder / "file"));
    EXPECT_FALSE(CanBeListed(""));
}

TEST(CanBeWritten, LeavesNoTraceAndTouchesNothing)
{
    const TemporaryFolder folder;
    WriteFile(folder / ".tarvex-0", "somebody's");
    std::filesystem::create_directory(folder / ".tarvex-1");
    EXPECT_TRUE(CanBeWritten(folder.Path()));
    EXPECT_EQ(FileBytes(folder / ".tarvex-0"), "somebody's");
    EXPECT_TRUE(std::filesystem::is_directory(folder / ".tarvex-1"));
    EXPECT_FALSE(std::filesystem::exists(folder / ".tarvex-2"));
}

TEST(CanBeWritten, IsFalseWhereNothingCanBeMade)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(CanBeWritten(folder / "missing"));
    using std::filesystem::perms;
    std::filesystem::permissions(folder.Path(), perms::owner_read | perms::owner_exec |
                                                    perms::others_read | perms::others_exec);
    {
        const OrdinaryUser user;
        EXPECT_FALSE(CanBeWritten(folder.Path()));
    }
    std::filesystem::permissions(folder.Path(), perms::owner_all);
}

} // namespace tarvex::tests
