#include "blocks/read_block.h"
#include "conversation/garbage_unit.h"
#include "conversation/report_checks.h"
#include "download/block_download.h"
#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

constexpr std::uint32_t kSeeds = 150;
constexpr Milliseconds kPatience = 60'000;

/// Counts the boxes of a silent unit, whenever they come.
class CountingBoxes : public MessageBoxes
{
public:
    int shown = 0;

    void Critical(std::string_view text, std::string_view title) override
    {
        EXPECT_EQ(text, "Attention: TAR--VEX not connected");
        EXPECT_EQ(title, kProgramTitle);
        ++shown;
    }
    bool AskOkCancel(std::string_view text) override
    {
        ADD_FAILURE() << text;
        return false;
    }
};

/// How a run came out, to see that all ways were walked.
struct Tally {
    int finished = 0;
    int notConnected = 0;
    int waitedForEver = 0;
    std::size_t rows = 0;
    int dataReports = 0;
};

void ExpectFramesOnly(const TestProgram& program)
{
    for (const std::string& sent : program.port.sent) {
        if (sent == "}") continue;
        EXPECT_EQ(sent.size(), 7U);
        EXPECT_EQ(sent.front(), 'a');
        EXPECT_EQ(sent.back(), '\r');
        EXPECT_EQ(sent.substr(1, 5).find_first_not_of("0123456789ABCDEF"), std::string::npos);
    }
}

void ExpectBoxesWithinTheirLengths(const TestProgram& program)
{
    for (const TextBox& box : program.panel.header.things)
        EXPECT_LE(box.Text().size(), box.MaximumLength());
}

/// One run of `command` against a garbage unit; what came of it goes into `tally`.
void Converse(TestProgram& program, std::uint32_t seed, Tally& tally,
              const std::function<void(DeviceLink&, OperatorView&)>& command)
{
    const GarbageUnit garbage(program, seed, seed % 3 == 0 ? 97 : seed % 3 == 1 ? 80 : 30);
    CountingBoxes boxes;
    program.world.EndProgramAt(kPatience);
    const std::string table = FileBytes(program.state.headerFilePath);

    program.Click([&] {
        const Line line{program.port, program.world, program.world,
                        boxes,        program.state, &program.panel.waitIndicator};
        DeviceLink link(line);
        OperatorView view(line);
        command(link, view);
        ++tally.finished;
    });

    tally.notConnected += boxes.shown;
    if (program.finishedHandlers == 0) {
        ++tally.waitedForEver;
        EXPECT_EQ(program.world.Now(), kPatience);
        EXPECT_TRUE(program.panel.waitIndicator.label.Visible() &&
                    program.panel.waitIndicator.ground.Visible());
    } else {
        EXPECT_TRUE(program.LineAtRest());
    }
    EXPECT_FALSE(program.unhandledFailure.has_value());
    EXPECT_GE(program.state.tickCounter, 0);
    EXPECT_LE(program.state.tickCounter, 5000);
    EXPECT_EQ(FileBytes(program.state.headerFilePath), table);
    ExpectFramesOnly(program);
    ExpectBoxesWithinTheirLengths(program);
}

TEST(GarbageConversation, ReadBlockHoldsItsPromisesAgainstAnyUnit)
{
    Tally tally;
    for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) {
        SCOPED_TRACE(seed);
        TestProgram program;
        Converse(program, seed, tally, [&](DeviceLink& link, OperatorView& view) {
            ReadBlock(program.panel, program.state, link, view);
        });
        EXPECT_THAT(NamesIn(program.folder.Path()), ::testing::ElementsAre("intestazione"));
        if (::testing::Test::HasFailure()) return;
    }
    EXPECT_GT(tally.finished, 10);
    EXPECT_GT(tally.notConnected, 0);
    EXPECT_GT(tally.waitedForEver, 10);
}

TEST(GarbageConversation, DownloadHoldsItsPromisesAgainstAnyUnit)
{
    Tally tally;
    for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) {
        SCOPED_TRACE(seed);
        TestProgram program;
        const std::filesystem::path reports = program.folder / "reports";
        std::filesystem::create_directory(reports);
        program.state.reportFolder = reports;
        Converse(program, seed, tally, [&](DeviceLink& link, OperatorView& view) {
            BlockDownload(program.panel, program.state, link, view, program.world);
        });
        EXPECT_THAT(NamesIn(program.folder.Path()),
                    ::testing::ElementsAre("intestazione", "reports"));
        ExpectSoundReports(reports);
        if (std::filesystem::exists(reports / "datiram.dat")) tally.rows += RowsIn(reports);
        if (!FileEndingIn(reports, "-num.dat").empty()) ++tally.dataReports;
        if (::testing::Test::HasFailure()) return;
    }
    EXPECT_GT(tally.finished, 10);
    EXPECT_GT(tally.notConnected, 0);
    EXPECT_GT(tally.waitedForEver, 10);
    EXPECT_GT(tally.rows, 100U);
    EXPECT_GT(tally.dataReports, 10);
}

} // namespace
} // namespace tarvex::tests
