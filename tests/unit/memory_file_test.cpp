#include "unit/memory_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

namespace tarvex::unit
{
namespace
{

namespace fs = std::filesystem;

class MemoryFile : public testing::Test
{
protected:
    void SetUp() override
    {
        folder_ = fs::temp_directory_path() / ("tarvex-memory-" + std::to_string(::getpid()));
        fs::create_directories(folder_);
    }
    void TearDown() override { fs::remove_all(folder_); }

    fs::path folder_;
};

TEST_F(MemoryFile, IsTheBareImage)
{
    Memory memory;
    memory.Put(0x01000, "CLIENT 2");
    SaveMemory(memory, folder_ / "mem");
    EXPECT_EQ(fs::file_size(folder_ / "mem"), 122'880U);
    std::ifstream file(folder_ / "mem", std::ios::binary);
    file.seekg(4096);
    std::string client(8, ' ');
    file.read(client.data(), 8);
    EXPECT_EQ(client, "CLIENT 2");
}

TEST_F(MemoryFile, GivesBackWhatWasSaved)
{
    Memory memory;
    memory.Put(0x1DFF0, std::string("\x00\r\n\x1A\xFF", 5));
    SaveMemory(memory, folder_ / "mem");
    EXPECT_EQ(LoadMemory(folder_ / "mem"), memory);
}

TEST_F(MemoryFile, IsReplacedAndLeavesNoOtherFile)
{
    Memory memory;
    SaveMemory(memory, folder_ / "mem");
    memory.Put(0, "new");
    SaveMemory(memory, folder_ / "mem");
    EXPECT_EQ(LoadMemory(folder_ / "mem"), memory);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 1);
}

TEST_F(MemoryFile, TakesThePlaceOfOneThatWasLeftHalfWritten)
{
    std::ofstream(folder_ / "mem.part") << std::string(200'000, 'x');
    Memory memory;
    memory.Put(0, "new");
    SaveMemory(memory, folder_ / "mem");
    EXPECT_EQ(LoadMemory(folder_ / "mem"), memory);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 1);
}

TEST_F(MemoryFile, ThatIsMissingFailsToLoad)
{
    EXPECT_THROW(LoadMemory(folder_ / "none"), std::runtime_error);
}

TEST_F(MemoryFile, ThatIsAFolderFailsToLoad)
{
    EXPECT_THROW(LoadMemory(folder_), std::runtime_error);
}

TEST_F(MemoryFile, OfAnotherLengthFailsToLoadAndSaysWhy)
{
    std::ofstream(folder_ / "mem") << "short";
    try {
        LoadMemory(folder_ / "mem");
        FAIL() << "loaded";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(std::string(error.what()), "memory file \"" + (folder_ / "mem").string() +
                                                 "\": a memory image is 122880 bytes long, not 5");
    }
}

TEST_F(MemoryFile, InAMissingFolderFailsToSave)
{
    EXPECT_THROW(SaveMemory(Memory(), folder_ / "none" / "mem"), std::runtime_error);
}

TEST_F(MemoryFile, InPlaceOfAFolderFailsToSaveAndLeavesIt)
{
    fs::create_directory(folder_ / "mem");
    EXPECT_THROW(SaveMemory(Memory(), folder_ / "mem"), std::runtime_error);
    EXPECT_TRUE(fs::is_directory(folder_ / "mem"));
}

} // namespace
} // namespace tarvex::unit
