#include "download/file_commands.h"

#include "core/header_steps.h"
#include "support/header_table.h"
#include "support/logic_test.h"
#include "support/system_limits.h"

#include <optional>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

/// A file dialog that the operator answers with `choice`, or cancels.
class ScriptedDialog : public FileDialog
{
public:
    std::optional<std::filesystem::path> choice;
    std::vector<std::string> shown; ///< each showing with its settings

    void ShowOpen(std::string_view title) override
    {
        titles.emplace_back(title);
        Show("open");
    }
    void ShowSave(std::string_view title, Fate fate) override
    {
        titles.emplace_back(title);
        fates.push_back(fate);
        Show("save");
    }

    std::vector<std::string> titles;
    std::vector<Fate> fates;

private:
    void Show(const std::string& kind)
    {
        shown.push_back(kind + " " + filter + " " + std::to_string(filterIndex) + " " +
                        initDir.string());
        if (choice) fileName = *choice;
    }
};

std::string ClientZeroTable()
{
    std::string bytes;
    for (int number = 1; number <= 30; ++number)
        bytes += "CLIENT0 SITE0000T   000002+00000DDMMYY  hhmmss  0+1.0000+1.0000+0.0000+0.0000";
    return bytes;
}

/// The panel shows record 3 of the own table.
class FileDialogTest : public LogicTest
{
protected:
    FileDialogTest() { OpenOwnTableAt(*this, 3); }

    void Choose()
    {
        Click([&] { ChooseHeaderFile(panel, state, dialog, folder / "dati"); });
    }
    void Create()
    {
        Click([&] { CreateDefaultHeaderFile(panel, state, dialog); });
    }

    /// The seven controls that need a header file, in the order in which they change.
    std::vector<std::pair<std::string, Control*>> Group()
    {
        return {{"sscommand9", &panel.previousRecordButton},
                {"sscommand10", &panel.nextRecordButton},
                {"sscommand6", &panel.setAllButton},
                {"Command3", &panel.readBlockButton},
                {"Command6", &panel.setBlockButton},
                {"Command4", &panel.writeCalibrationButton},
                {"Command7", &panel.resetBlockButton}};
    }

    void LogGroup()
    {
        for (const auto& [name, control] : Group()) {
            control->Watch([this, named = name, changed = control] {
                port.history.push_back(named + (changed->Enabled() ? " on" : " off"));
            });
        }
    }

    void ExpectGroup(bool enabled)
    {
        for (const auto& [name, control] : Group())
            EXPECT_EQ(control->Enabled(), enabled) << name;
    }

    ScriptedDialog dialog;
};

TEST_F(FileDialogTest, ChoosingShowsRecord1OfTheFileWithItsCalibration)
{
    const std::filesystem::path chosen = folder / "other";
    WriteFile(chosen, OwnRecord(20) + OwnRecord(21));
    dialog.choice = chosen;
    LogTexts(*this, "Text15", panel.headerFile);
    LogTexts(*this, "Text2", panel.blockNumber);
    LogTexts(*this, "Text3", panel.header[Client]);
    LogTexts(*this, "Text22", panel.calibration[Point]);
    LogGroup();
    Choose();

    EXPECT_THAT(dialog.shown, ElementsAre("open  FILE (*.*)|*.*| 1 " + (folder / "dati").string()));
    EXPECT_EQ(state.headerFilePath, chosen);
    EXPECT_THAT(port.history,
                ElementsAre("Text15=" + chosen.string(), "sscommand9 on", "sscommand10 on",
                            "sscommand6 on", "Command3 on", "Command6 on", "Command4 on",
                            "Command7 on", "Text2=01", "Text3=ROSSI_20", "Text22=T"));
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(state.blockHeader, StoredHeader(1));
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(OwnRecord(20)));
    EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(OwnRecord(20)));
    EXPECT_EQ(FileBytes(chosen), OwnRecord(20) + OwnRecord(21));
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(FileDialogTest, ChoosingShowsWhateverBytesTheFileHolds)
{
    std::string bytes;
    for (int code = 255; code >= 179; --code)
        bytes += static_cast<char>(code);
    bytes[0] = '\0';
    dialog.choice = folder / "other";
    WriteFile(*dialog.choice, bytes);
    Choose();

    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(bytes));
    EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(bytes));
}

TEST_F(FileDialogTest, ChoosingAFileThatEndsInsideItsFirstRecordShowsAndKeepsItsBytes)
{
    const std::string begin = OwnRecord(7).substr(0, 40);
    WriteFile(folder / "short", begin);
    dialog.choice = folder / "short";
    Choose();

    EXPECT_EQ(HeaderOnPanel(*this), begin.substr(0, 38) + std::string(6, ' '));
    EXPECT_EQ(CalibrationOnPanel(*this), std::string(29, ' '));
    EXPECT_EQ(FileBytes(folder / "short"), begin);

    Click([&] { StepRecordUp(panel, state); });

    EXPECT_EQ(FileBytes(folder / "short"), begin + std::string(37, ' '));
}

TEST_F(FileDialogTest, ChoosingANameWithoutAFileMakesOneAndShowsBlanks)
{
    dialog.choice = folder / "new";
    Choose();

    EXPECT_EQ(FileBytes(folder / "new"), "");
    EXPECT_EQ(HeaderOnPanel(*this), std::string(44, ' '));
    EXPECT_EQ(CalibrationOnPanel(*this), std::string(29, ' '));
    EXPECT_EQ(panel.blockNumber.Text(), "01");
}

TEST_F(FileDialogTest, ChoosingAFileThatCannotBeOpenedShowsWhatTheWorkingHeaderHolds)
{
    DisableFileCommandGroup(panel);
    dialog.choice = folder.Path();
    state.blockHeader = DefaultHeader(8);
    Choose();

    EXPECT_FALSE(unhandledFailure.has_value());
    EXPECT_EQ(state.headerFilePath, folder.Path());
    EXPECT_EQ(panel.headerFile.Text(), folder.Path().string());
    ExpectGroup(true);
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(DefaultRecord(9)));
    EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(DefaultRecord(9)));
}

TEST_F(FileDialogTest, ShowsAPathInThePanelsOwnCharacters)
{
    dialog.choice = folder.Path() / std::filesystem::path(u8"citt\u00E0 \u4E2D");
    Choose();

    EXPECT_EQ(panel.headerFile.Text(), (folder.Path() / "citt").string() + "\xE0 ?");
    EXPECT_TRUE(std::filesystem::exists(*dialog.choice));
}

TEST_F(FileDialogTest, CancellingTheFirstChoiceEmptiesThePathAndEndsTheRecordCommands)
{
    const std::filesystem::path before = state.headerFilePath;
    DisableFileCommandGroup(panel);
    Choose();

    EXPECT_TRUE(state.headerFilePath.empty());
    EXPECT_EQ(panel.headerFile.Text(), "");
    ExpectGroup(false);
    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_EQ(panel.blockNumber.Text(), "03");

    panel.header[Client].SetText("VERDI");
    Click([&] { StepRecordUp(panel, state); });
    Click([&] { CopyHeaderForward(panel, state); });
    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_EQ(panel.header[Client].Text(), "VERDI");
    state.headerFilePath = before;
    EXPECT_EQ(StoredTable(*this), OwnTable());
}

TEST_F(FileDialogTest, CancellingALaterChoiceTakesTheSameFileOnceMore)
{
    dialog.choice = folder / "other";
    WriteFile(*dialog.choice, OwnRecord(20) + OwnRecord(21));
    Choose();
    Click([&] { StepRecordUp(panel, state); });
    dialog.choice.reset();
    Choose();

    EXPECT_EQ(state.headerFilePath, folder / "other");
    EXPECT_EQ(panel.blockNumber.Text(), "01");
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(OwnRecord(20)));
}

TEST_F(FileDialogTest, CreatingWritesThirtyAlikeRecordsAndDisablesTheGroup)
{
    const std::string text15 = panel.headerFile.Text();
    const std::vector<std::string> shown = HeaderBoxTexts();
    dialog.choice = folder / "new";
    LogGroup();
    Create();

    EXPECT_THAT(dialog.shown, ElementsAre("save  FILE (*.*)|*.*| 1 "));
    EXPECT_EQ(FileBytes(folder / "new"), ClientZeroTable());
    EXPECT_EQ(state.headerFilePath, folder / "new");
    EXPECT_EQ(panel.headerFile.Text(), text15);
    EXPECT_THAT(port.history,
                ElementsAre("sscommand9 off", "sscommand10 off", "sscommand6 off", "Command3 off",
                            "Command6 off", "Command4 off", "Command7 off"));
    EXPECT_EQ(HeaderBoxTexts(), shown);
    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_EQ(panel.blockNumber.Text(), "03");
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(FileDialogTest, CreatingKeepsWhatFollowsRecord30)
{
    dialog.choice = folder / "long";
    WriteFile(*dialog.choice, std::string(2310, 'x') + "more");
    Create();

    EXPECT_EQ(FileBytes(folder / "long"), ClientZeroTable() + "more");
}

TEST_F(FileDialogTest, CopyingAfterCreatingWritesIntoTheNewFile)
{
    dialog.choice = folder / "new";
    Create();
    Click([&] { CopyHeaderForward(panel, state); });

    EXPECT_EQ(FileBytes(folder / "new"), ClientZeroTable().replace(154, 77, OwnRecord(3)));
    EXPECT_EQ(panel.blockNumber.Text(), "04");
}

TEST_F(FileDialogTest, CancellingTheFirstCreationEmptiesThePathAndChangesNothingElse)
{
    const std::string text15 = panel.headerFile.Text();
    Create();

    EXPECT_TRUE(state.headerFilePath.empty());
    EXPECT_EQ(panel.headerFile.Text(), text15);
    ExpectGroup(true);
    EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("intestazione"));
}

TEST_F(FileDialogTest, CreatingWhereNoFileCanBeEndsTheProgram)
{
    dialog.choice = folder / "missing" / "new";
    Create();

    EXPECT_TRUE(unhandledFailure.has_value());
    EXPECT_EQ(world.end.Status(), 1);
    EXPECT_EQ(state.headerFilePath, folder / "missing" / "new");
    ExpectGroup(true);
    EXPECT_EQ(finishedHandlers, 0);
}

TEST_F(FileDialogTest, CreatingOnADiskThatBecomesFullEndsTheProgramWithWholeRecords)
{
    SKIP_WHERE_NO_DISK_FILLS();
    dialog.choice = folder / "new";
    {
        const FullDisk full(385 + 10);
        Create();
    }

    EXPECT_TRUE(unhandledFailure.has_value());
    EXPECT_EQ(FileBytes(folder / "new"), ClientZeroTable().substr(0, 385));
    ExpectGroup(true);
}

TEST_F(FileDialogTest, EnablesTheDownloadWhateverTheDialogGave)
{
    for (const bool cancelled : {true, false}) {
        panel.downloadButton.Disable();
        if (!cancelled) dialog.choice = folder / "name";
        Click([&] { EnableDownload(panel, dialog); });

        EXPECT_TRUE(panel.downloadButton.Enabled());
    }
    EXPECT_THAT(dialog.shown, ElementsAre("save  0 ", "save  0 ")) << "no setting of its own";
    EXPECT_TRUE(state.reportFolder.empty());
    EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("intestazione"));
}

TEST_F(FileDialogTest, KeepsItsSettingsAndNameFromOneCommandToTheNext)
{
    dialog.choice = folder / "new";
    Create();
    dialog.choice.reset();
    Choose(); // cancelled: the created file's name is still there
    EXPECT_EQ(state.headerFilePath, folder / "new");
    ExpectGroup(true);
    EXPECT_EQ(panel.header[Client].Text(), "CLIENT0 ");

    dialog.choice = folder / "name";
    Click([&] { EnableDownload(panel, dialog); });
    dialog.choice.reset();
    Create(); // cancelled: the name of the download's dialog is taken for a choice
    EXPECT_EQ(state.headerFilePath, folder / "name");
    EXPECT_EQ(FileBytes(folder / "name"), ClientZeroTable());

    const std::string dati = (folder / "dati").string();
    EXPECT_THAT(dialog.shown,
                ElementsAre("save  FILE (*.*)|*.*| 1 ", "open  FILE (*.*)|*.*| 1 " + dati,
                            "save  FILE (*.*)|*.*| 1 " + dati, "save  FILE (*.*)|*.*| 1 " + dati));
}

TEST_F(FileDialogTest, EachSaysWhatItIsForAndWhatBecomesOfTheFile)
{
    Choose();
    dialog.choice = folder / "new";
    Create();
    Click([&] { EnableDownload(panel, dialog); });
    EXPECT_THAT(dialog.titles, ElementsAre("Open header file", "New default header file",
                                           "Folder of the reports"));
    EXPECT_THAT(dialog.fates,
                ElementsAre(FileDialog::Fate::Overwritten, FileDialog::Fate::LeftAlone));
}

} // namespace
} // namespace tarvex::tests
