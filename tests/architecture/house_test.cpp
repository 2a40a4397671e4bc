#include "architecture/include_rule.h"
#include "architecture/link_rule.h"
#include "architecture/sources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

TEST(Architecture, EveryFileIncludesOnlyWhatItsRoomMay)
{
    for (const std::string& file : FilesOfTheProject({".h", ".cpp", ".in", ".hpp", ".cc"}))
        EXPECT_THAT(Complaints(file, Read(file)), ::testing::IsEmpty());
}

TEST(Architecture, EveryFolderLinksOnlyWhatItsRoomMay)
{
    for (const std::string& list : FilesOfTheProject({"CMakeLists.txt"})) {
        if (list == "src/CMakeLists.txt" || list == "survey/CMakeLists.txt")
            continue; // names all folders, and links none
        EXPECT_THAT(LinkComplaints(list, Read(list)), ::testing::IsEmpty());
    }
}

TEST(Architecture, LooksAtTheSourcesThatThereAre)
{
    const std::vector<std::string> files = FilesOfTheProject({".h", ".cpp"});
    for (const std::string file :
         {"src/core/control_panel.h", "src/link/device_link.cpp", "src/blocks/read_block.cpp",
          "src/download/block_download.cpp", "survey/reports/reader.cpp"})
        EXPECT_THAT(files, ::testing::Contains(file));
}

} // namespace
} // namespace tarvex::tests
