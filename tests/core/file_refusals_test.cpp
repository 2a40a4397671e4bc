#include "core/record_file.h"

#include "core/failure.h"
#include "support/logic_test.h"
#include "support/system_limits.h"

#include <array>
#include <fstream>
#include <functional>
#include <string>

namespace tarvex::tests
{
namespace
{

bool Opens(const std::filesystem::path& path)
{
    try {
        RecordFile file(4);
        file.Open(path);
        return true;
    } catch (const RunTimeFailure&) {
        return false;
    }
}

bool OpensEmptied(const std::filesystem::path& path)
{
    try {
        RecordFile file(4);
        file.OpenEmptied(path);
        return true;
    } catch (const RunTimeFailure&) {
        return false;
    }
}

bool Deletes(const std::filesystem::path& path)
{
    try {
        DeleteFile(path);
        return true;
    } catch (const RunTimeFailure&) {
        return false;
    }
}

class FileRefusalsTest : public ::testing::Test
{
protected:
    TemporaryFolder folder;
    std::filesystem::path path = folder / "table";
};

TEST_F(FileRefusalsTest, AnEmptyPathDoesNotOpen)
{
    EXPECT_FALSE(Opens(""));
    EXPECT_FALSE(OpensEmptied(""));
}

TEST_F(FileRefusalsTest, AFolderDoesNotOpen)
{
    EXPECT_FALSE(Opens(folder.Path()));
    EXPECT_FALSE(OpensEmptied(folder.Path()));
    EXPECT_TRUE(NamesIn(folder.Path()).empty());
}

TEST_F(FileRefusalsTest, AFileInAMissingFolderDoesNotOpenAndNoFolderIsMade)
{
    EXPECT_FALSE(Opens(folder / "missing/table"));
    EXPECT_FALSE(OpensEmptied(folder / "missing/table"));
    EXPECT_TRUE(NamesIn(folder.Path()).empty());
}

TEST_F(FileRefusalsTest, AFileBelowAFileDoesNotOpen)
{
    WriteFile(path, "1111");
    EXPECT_FALSE(Opens(path / "table"));
    EXPECT_EQ(FileBytes(path), "1111");
}

TEST_F(FileRefusalsTest, AFileThatMayNotBeWrittenDoesNotOpen)
{
    SKIP_WHERE_FOLDERS_HAVE_NO_MODE();
    WriteFile(path, "1111");
    std::filesystem::permissions(path, std::filesystem::perms::owner_read |
                                           std::filesystem::perms::group_read |
                                           std::filesystem::perms::others_read);
    EXPECT_TRUE(HoldsForAnyUser([&] { return !Opens(path) && !OpensEmptied(path); }));
    EXPECT_EQ(FileBytes(path), "1111");
}

TEST_F(FileRefusalsTest, AFolderThatMayNotBeWrittenTakesNoFileAndLosesNone)
{
    SKIP_WHERE_FOLDERS_HAVE_NO_MODE();
    WriteFile(path, "1111");
    std::filesystem::permissions(folder.Path(), std::filesystem::perms::owner_read |
                                                    std::filesystem::perms::owner_exec |
                                                    std::filesystem::perms::others_read |
                                                    std::filesystem::perms::others_exec);
    EXPECT_TRUE(HoldsForAnyUser([&] { return !Opens(folder / "new") && !Deletes(path); }));
    EXPECT_THAT(NamesIn(folder.Path()), ::testing::ElementsAre("table"));
}

TEST_F(FileRefusalsTest, AReportFailingToOpenCanBeOpenedAfterwards)
{
    RecordFile file(4);
    EXPECT_THROW(file.Open(folder / "missing/table"), RunTimeFailure);
    EXPECT_FALSE(file.IsOpen());
    EXPECT_NO_THROW(file.Open(path));
}

TEST_F(FileRefusalsTest, DeleteRemovesOneFile)
{
    WriteFile(path, "1111");
    WriteFile(folder / "table2", "2222");
    EXPECT_TRUE(Deletes(path));
    EXPECT_THAT(NamesIn(folder.Path()), ::testing::ElementsAre("table2"));
}

TEST_F(FileRefusalsTest, DeleteFailsWithoutAFile)
{
    EXPECT_FALSE(Deletes(path));
    EXPECT_FALSE(Deletes(""));
    EXPECT_FALSE(Deletes(folder / "missing/table"));
}

TEST_F(FileRefusalsTest, DeleteNeverRemovesAFolder)
{
    std::filesystem::create_directory(folder / "empty");
    EXPECT_FALSE(Deletes(folder / "empty"));
    EXPECT_FALSE(Deletes(folder.Path()));
    EXPECT_TRUE(std::filesystem::is_directory(folder / "empty"));
}

TEST_F(FileRefusalsTest, DeleteOfALinkLeavesWhatItPointsTo)
{
    SKIP_WHERE_NO_LINK_IS_MADE();
    std::filesystem::create_directory(folder / "kept");
    std::filesystem::create_directory_symlink(folder / "kept", folder / "link");
    EXPECT_TRUE(Deletes(folder / "link"));
    EXPECT_THAT(NamesIn(folder.Path()), ::testing::ElementsAre("kept"));
}

TEST_F(FileRefusalsTest, DeleteTakesWildcardsLiterally)
{
    WriteFile(folder / "a-dat.dat", "1");
    EXPECT_FALSE(Deletes(folder / "*-dat.dat"));
    EXPECT_FALSE(Deletes(folder / "?-dat.dat"));
    EXPECT_THAT(NamesIn(folder.Path()), ::testing::ElementsAre("a-dat.dat"));
}

TEST_F(FileRefusalsTest, DeleteOfANameWithAWildcardTakesThatFileOnly)
{
    if (std::filesystem::path::preferred_separator != '/')
        GTEST_SKIP() << "no name holds a wildcard here";
    WriteFile(folder / "a-dat.dat", "1");
    WriteFile(folder / "*-dat.dat", "2");
    EXPECT_TRUE(Deletes(folder / "*-dat.dat"));
    EXPECT_THAT(NamesIn(folder.Path()), ::testing::ElementsAre("a-dat.dat"));
}

TEST_F(FileRefusalsTest, APathWithANulIsNotAnotherFilesPath)
{
    WriteFile(path, "1111");
    const std::filesystem::path cutShort = path.string() + std::string("\0x", 2);
    EXPECT_FALSE(Opens(cutShort));
    EXPECT_FALSE(OpensEmptied(cutShort));
    EXPECT_FALSE(Deletes(cutShort));
    EXPECT_EQ(FileBytes(path), "1111");
}

/// What a step says when it fails; empty when it does not fail.
std::string ReasonOf(const std::function<void()>& step)
{
    try {
        step();
        return {};
    } catch (const RunTimeFailure& failure) {
        return failure.what();
    }
}

TEST_F(FileRefusalsTest, AFileThatNeedNotBeThereIsDeletedOrRefusedLikeAnyOther)
{
    DeleteFileWhenThere(path);
    std::ofstream(path) << "there";
    DeleteFileWhenThere(path);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(ReasonOf([&] { DeleteFileWhenThere(folder.Path()); }),
              "Path/File access error, deleting " + folder.Path().string());
}

TEST_F(FileRefusalsTest, EveryFailureNamesItsStepAndItsFile)
{
    SKIP_WHERE_NO_DISK_FILLS();
    const std::filesystem::path missing = folder / "no" / "table";
    const auto open = [](const std::filesystem::path& what) {
        return ReasonOf([&] { RecordFile(4).Open(what); });
    };
    EXPECT_EQ(open(missing), "Path/File access error, opening " + missing.string());
    EXPECT_EQ(open(folder.Path()), "Path/File access error, opening " + folder.Path().string());
    EXPECT_EQ(ReasonOf([&] { DeleteFile(missing); }),
              "File not found, deleting " + missing.string());
    EXPECT_EQ(ReasonOf([&] { DeleteFile(folder.Path()); }),
              "Path/File access error, deleting " + folder.Path().string());

    RecordFile file(4);
    file.Open(path);
    std::array<char, 4> record{};
    EXPECT_EQ(ReasonOf([&] { file.Put(2.5, record); }),
              "Bad record number 2.5, writing " + path.string());
    EXPECT_EQ(ReasonOf([&] { file.Get(0, record); }),
              "Bad record number 0, reading " + path.string());
    const FullDisk full(2);
    EXPECT_EQ(ReasonOf([&] { file.Put(1, record); }), "Disk full, writing " + path.string());
}

} // namespace
} // namespace tarvex::tests
