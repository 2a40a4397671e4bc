#include "program/program_test.h"
#include "unit/memory_file.h"
#include "unit/survey.h"

#include <QPushButton>

#include <csignal>
#include <set>
#include <string>
#include <sys/resource.h>

namespace tarvex::tests
{
namespace
{

class FileFaultTest : public ProgramTest
{
protected:
    /// Starts with a survey of 2.0 m in block 1 whose client is those bytes.
    void StartWithClient(const std::string& client)
    {
        unit::Survey survey;
        survey.header.client = client;
        survey.header.site = "DIGA A";
        survey.header.tube = "T12";
        survey.header.depth = "0020";
        survey.header.readout = "03";
        unit::Memory memory = unit::BlankMemory();
        unit::FillBlock(memory, 1, survey);
        unit::SaveMemory(memory, folder / "unit.bin");
        Start({"--memory", QString::fromStdString((folder / "unit.bin").string())});
    }

    /// Downloads block 1 into `reports`; a download that never ends is cut off by closing the
    /// panel.
    void Download(const std::filesystem::path& reports)
    {
        ChooseFolder(reports);
        AtPanel().ShowTab(2);
        CloseAfter(3'000);
        AtPanel().Click("command3d1");
    }

    static std::set<std::string> FilesIn(const std::filesystem::path& reports)
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(reports)) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }
};

TEST_F(FileFaultTest, AClientWithASlashNeverLeavesTheFolder)
{
    StartWithClient("../x");
    std::filesystem::create_directory(folder / "reports");

    Download(folder / "reports");

    EXPECT_EQ(FilesIn(folder / "reports"), std::set<std::string>{"datiram.dat"});
    EXPECT_EQ(std::filesystem::file_size(folder / "reports" / "datiram.dat"), 113U * 6);
    EXPECT_FALSE(program->End().Ended());
}

TEST_F(FileFaultTest, AClientWithANulKeepsTheWorkFileAlone)
{
    StartWithClient(std::string("RO\0SI", 5));
    std::filesystem::create_directory(folder / "reports");

    Download(folder / "reports");

    EXPECT_EQ(FilesIn(folder / "reports"), std::set<std::string>{"datiram.dat"});
    EXPECT_FALSE(program->End().Ended());
}

TEST_F(FileFaultTest, AClientOfTwoDotsIsANameLikeAnyOther)
{
    StartWithClient("..");
    std::filesystem::create_directory(folder / "reports");

    Download(folder / "reports");

    EXPECT_EQ(FilesIn(folder / "reports"),
              (std::set<std::string>{"..      -DIGA A  -T12 -03-dat.dat",
                                     "..      -DIGA A  -T12 -03-num.dat", "datiram.dat"}));
}

TEST_F(FileFaultTest, AccentsInTheUnitsHeaderReachTheNamesAsUnicode)
{
    StartWithClient("CITT\xC0");
    std::filesystem::create_directory(folder / "reports");

    Download(folder / "reports");

    EXPECT_TRUE(FilesIn(folder / "reports").contains("CITT\xC3\x80   -DIGA A  -T12 -03-num.dat"));
}

TEST_F(FileFaultTest, AMissingFolderEndsInAWaitThatClosingEnds)
{
    StartWithClient("ROSSI");

    Download(folder / "gone");

    EXPECT_TRUE(program->End().Ended());
    EXPECT_TRUE(AtPanel().Find<QWidget>("Label34")->isVisibleTo(program->MainForm()));
    EXPECT_FALSE(std::filesystem::exists(folder / "gone"));
    EXPECT_TRUE(boxes.texts.isEmpty());
}

TEST_F(FileFaultTest, AFolderThatCannotBeWrittenEndsInAWaitThatClosingEnds)
{
    StartWithClient("ROSSI");

    Download("/proc");

    EXPECT_TRUE(program->End().Ended());
    EXPECT_TRUE(boxes.texts.isEmpty());
}

/// Makes every file end at `bytes` for as long as it lives, as a full disk does.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit full{bytes, former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &former_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit former_{};
};

TEST_F(FileFaultTest, AFullDiskKeepsWholeRecordsAndSaysNothing)
{
    StartWithClient("ROSSI");
    std::filesystem::create_directory(folder / "reports");

    {
        const FullDisk full(400);
        Download(folder / "reports");
    }

    EXPECT_FALSE(program->End().Ended());
    EXPECT_TRUE(boxes.texts.isEmpty());
    const auto reports = folder / "reports";
    EXPECT_EQ(std::filesystem::file_size(reports / "ROSSI   -DIGA A  -T12 -03-dat.dat"), 42U * 9);
    EXPECT_EQ(std::filesystem::file_size(reports / "datiram.dat"), 113U * 3);
}

TEST_F(FileFaultTest, AWorkingFolderThatCannotBeWrittenShowsTheLastDefaultHeader)
{
    unit = std::make_unique<UnitProcess>(folder.Path(), QStringList{});
    std::filesystem::current_path("/proc");

    StartAlone();

    EXPECT_EQ(AtPanel().Text("Text2"), "01");
    EXPECT_EQ(AtPanel().Text("Text3"), "CLIENT30");
    EXPECT_TRUE(boxes.texts.isEmpty());
    AtPanel().Click("Command3");
    EXPECT_NE(AtPanel().Text("Text3"), "CLIENT30");
}

} // namespace
} // namespace tarvex::tests
