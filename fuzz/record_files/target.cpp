#include "common/target.h"

#include "common/choices.h"
#include "common/require.h"
#include "core/header_steps.h"
#include "core/header_store.h"
#include "download/data_report.h"
#include "download/file_commands.h"
#include "record_files/modelled_file.h"
#include "support/report_bytes.h"
#include "support/system_limits.h"
#include "support/test_program.h"

namespace tarvex::fuzz
{
namespace
{

constexpr std::size_t kLongestFile = 3000;
constexpr std::size_t kDataRecord = sizeof(DataRecord);

/// A dialog that gives one file.
class OneFile : public FileDialog
{
public:
    explicit OneFile(std::filesystem::path path) { fileName = std::move(path); }
    void ShowOpen(std::string_view /*title*/) override {}
    void ShowSave(std::string_view /*title*/, Fate /*fate*/) override {}
};

void TakeHeaderStep(tests::TestProgram& program, Choices& choices, FileDialog& dialog)
{
    switch (choices.Below(7)) {
    case 0:
        return StepRecordUp(program.panel, program.state);
    case 1:
        return StepRecordDown(program.panel, program.state);
    case 2:
        return CopyHeaderForward(program.panel, program.state);
    case 3:
        return ChooseHeaderFile(program.panel, program.state, dialog, program.folder.Path());
    case 4:
        return CreateDefaultHeaderFile(program.panel, program.state, dialog);
    case 5:
        return StorePanelWithoutCalibration(program.panel, program.state, 1 + choices.Below(40));
    default:
        program.state.currentBlock = choices.Below(60) / 2.0;
        return program.panel.header.things[choices.Below(11)].SetText(choices.HostileText(12));
    }
}

/// The records that whole steps through any header file leave behind.
void WalkHeaders(Choices& choices)
{
    tests::TestProgram program;
    OneFile dialog(program.folder / "any");
    const std::string bytes = choices.Bytes(kLongestFile);
    tests::WriteFile(dialog.fileName, bytes);
    program.Click([&] { ChooseHeaderFile(program.panel, program.state, dialog, {}); });
    for (int steps = 0; steps < 60 && !choices.UsedUp(); ++steps)
        program.Click([&] { TakeHeaderStep(program, choices, dialog); });
    for (const TextBox& box : program.panel.header.things)
        Require(box.Text().size() <= box.MaximumLength(), "a box holds its length at most");
    const auto size = tests::FileBytes(dialog.fileName).size();
    Require(size == bytes.size() || size % sizeof(BlockHeader) == 0 || size > bytes.size(),
            "a header file is never cut short");
}

/// A work file of any bytes is turned upside down, with two records without data first.
void TurnWorkFile(Choices& choices)
{
    tests::TestProgram program;
    program.state.reportFolder = program.folder.Path();
    const std::string work(choices.Rest().substr(0, kLongestFile));
    tests::WriteFile(program.folder / "datiram.dat", work);
    WriteDataReport(program.state, program.world, {program.folder.Path(), "x-num.dat"},
                    WorkFile(program.folder.Path()));

    std::string expected = tests::BlankDataRecord() + tests::BlankDataRecord();
    for (std::size_t record = work.size() / kDataRecord; record > 0; --record)
        expected += work.substr((record - 1) * kDataRecord, kDataRecord);
    Require(tests::FileBytes(program.folder / "x-num.dat") == expected,
            "a data report is the work file upside down");
    Require(tests::FileBytes(program.folder / "datiram.dat") == work, "the work file stays");
}

void CompareWithModel(Choices& choices)
{
    const tests::TemporaryFolder folder;
    const std::string bytes = choices.Bytes(kLongestFile);
    const std::size_t limit = bytes.size() + choices.Below(3000);
    tests::WriteFile(folder / "file", bytes);
    const tests::FullDisk disk(limit);
    ModelledFile file(folder / "file", bytes, limit);
    for (int steps = 0; steps < 40 && !choices.UsedUp(); ++steps)
        file.Step(choices);
}

} // namespace
} // namespace tarvex::fuzz

void tarvex::fuzz::RunInput(std::string_view input)
{
    Choices choices(input);
    constexpr void (*parts[])(Choices&) = {WalkHeaders, TurnWorkFile, CompareWithModel};
    choices.OneOf(parts)(choices);
}
