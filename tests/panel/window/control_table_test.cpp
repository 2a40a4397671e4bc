#include "panel/window/control_table.h"

#include "panel/window/control_page.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>

namespace tarvex::tests
{

using namespace panel;

namespace
{

const std::filesystem::path kSources = TARVEX_SOURCE_DIR;

struct Expected {
    const char* name;
    const char* caption;
    const char* toolTip;
    Command command;
    bool hidden;
    bool disabled; // at the start, before the load
};

class ButtonRow : public ::testing::TestWithParam<Expected>
{
};

void PrintTo(const Expected& row, std::ostream* out)
{
    *out << row.name;
}

constexpr const char* kWrites = "Scrittura dati Intestazione a TAR -- VEX";
constexpr const char* kReads = "Lettura dati Intestazione da TAR--VEX";

const Expected kButtons[] = {
    {"Command7", " Reset Block", "", Command::ResetBlock, false, false},
    {"ssCommand8", " Total Reset", "", Command::TotalReset, false, false},
    {"Command6", "Set Block", kWrites, Command::SetBlock, false, false},
    {"sscommand6", "Set All", kWrites, Command::SetAll, false, false},
    {"Command3", " Read Block", kReads, Command::ReadBlock, false, false},
    {"Command8", " Read All Blocks", kReads, Command::ReadAllBlocks, false, false},
    {"Command9", "Database Tar Vex", kReads, Command::OpenDatabase, true, false},
    {"Command11", "About", "", Command::ShowAbout, false, false},
    {"Command12", "Help", "", Command::OpenManual, false, false},
    {"sscommand9", "-", "", Command::StepRecordDown, false, true},
    {"sscommand10", "+", "", Command::StepRecordUp, false, true},
    {"sscommand11", " Copy Data", "", Command::CopyHeaderForward, false, false},
    {"sscommand1", "File", "", Command::ChooseHeaderFile, true, false},
    {"sscommand5", "Default", "", Command::CreateDefaultHeaderFile, true, false},
    {"Command1", "+", "", Command::DownloadBlockUp, false, false},
    {"Command2", "-", "", Command::DownloadBlockDown, false, false},
    {"Command10", "Folder", "", Command::ShowFolderChooser, false, false},
    {"command3d1", "Ok", "", Command::BlockDownload, false, true},
    {"command3d3", "Cartella", "", Command::EnableDownload, true, false},
    {"Command13", "Reset G/Z", "", Command::ResetGainZero, false, false},
    {"Command4", "Scrivi", "", Command::None, true, false},
    {"Command5", "Calcola Gain", "", Command::None, true, false},
    {"Command6scrivi", "Write", "", Command::WriteCycleDelay, false, false},
    {"ssCommand3", "Read Clock", "", Command::ReadClock, false, false},
    {"ssCommand4", "Write Clock", "", Command::WriteClock, false, false},
    {"ssCommand2", "Start Clock", "Comando solo di servizio", Command::StartClock, true, false},
    {"ssOption1_0", "Com 1", "", Command::ChoosePort1, false, false},
    {"ssOption1_1", "Com 2", "", Command::ChoosePort2, false, false},
    {"ssOption1_2", "Com 3", "", Command::ChoosePort3, false, false},
    {"ssOption1_3", "Com 4", "", Command::ChoosePort4, false, false},
};

TEST_P(ButtonRow, HasItsTextsItsCommandAndItsFirstState)
{
    const Expected& expected = GetParam();
    const ControlRow& row = RowNamed(expected.name);
    ControlPanel panel;
    const Control* control = ControlOf(row, panel);
    EXPECT_EQ(row.caption, expected.caption);
    EXPECT_EQ(row.toolTip, expected.toolTip);
    EXPECT_EQ(row.command, expected.command);
    EXPECT_EQ(StartsHidden(row), expected.hidden);
    EXPECT_EQ(control != nullptr && !control->Enabled(), expected.disabled);
}

INSTANTIATE_TEST_SUITE_P(Buttons, ButtonRow, ::testing::ValuesIn(kButtons),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ControlTable, HoldsNoOtherButton)
{
    std::size_t buttons = 0;
    for (const ControlRow& row : ControlTable())
        buttons += row.kind == ControlKind::Button || row.kind == ControlKind::Option ? 1 : 0;
    EXPECT_EQ(buttons, std::size(kButtons));
}

constexpr std::size_t kAny = TextBox::kAnyLength;

struct ExpectedBox {
    const char* name;
    std::size_t length;
    const char* caption; // of its label
    const char* hint;
    const char* initial;
    bool locked;
    bool hidden;
    bool disabled;
};

class BoxRow : public ::testing::TestWithParam<ExpectedBox>
{
};

void PrintTo(const ExpectedBox& row, std::ostream* out)
{
    *out << row.name;
}

const ExpectedBox kBoxes[] = {
    {"Text2", 2, "Block Number (01-30)  :", "", "01", false, false, false},
    {"Text3", 8, "Client  :", "", "", false, false, false},
    {"Text4", 8, "Site :", "", "", false, false, false},
    {"Text5", 4, "Tube Number  :", "", "", false, false, false},
    {"Text6", 3, "Depth  :", "Max.  100.0 mt.     Max.  200.0 mt.  ", "", false, false, false},
    {"Text13", 1, "", "", "0", false, false, false},
    {"Text7", 1, "Step  :", "0 = 0,5 mt.          1 = 1 mt", "", false, false, false},
    {"Text8", 1, "Guides no  :", "2 - 4", "2", false, false, false},
    {"Text9", 4, "North  :",
     "da \xC2\xB1"
     "000\xC2\xB0 a \xC2\xB1"
     "360\xC2\xB0",
     "", false, false, false},
    {"Text10", 2, "Readout no  :", "", "", false, false, false},
    {"Text11", 6, "Date  :", "DDMMYY", "", true, false, false},
    {"Text12", 6, "Time  :", "HHMMSS", "", true, false, false},
    {"Text15", kAny, "FILE NAME :", "", "", true, true, false},
    {"Text18", 7, "Gain 1\xC2\xB0 Canale", "", "", false, true, true},
    {"Text19", 7, "Gain 2\xC2\xB0 Canale", "", "", false, true, true},
    {"Text20", 7, "Zero 1\xC2\xB0 Canale", "", "", false, true, true},
    {"Text21", 7, "Zero 2\xC2\xB0 Canale", "", "", false, true, true},
    {"Text22", 1, "Punto", "", "", false, true, true},
    {"numblocco", 2, "Block Number (01-30)  :", "", "01", false, false, false},
    {"Text1", kAny, "FILE NAME :", "", "", true, false, false},
    {"Text17", kAny, "RAM Address", "", "", true, false, false},
    {"Text16rt", 6, "Delay for Automatic Cycle", "From 3 to 9", "3", false, false, false},
    {"Text13a", 2, "DD", "", "", false, false, false},
    {"Text1a", 2, "MM", "", "", false, false, false},
    {"Text2a", 2, "YY", "", "", false, false, false},
    {"Text14a", 2, "hh", "", "", false, false, false},
    {"Text3a", 2, "mm", "", "", false, false, false},
    {"Text4a", 2, "ss", "", "", false, false, false},
};

std::string CaptionOf(ControlKind kind, std::string_view box)
{
    for (const ControlRow& row : ControlTable())
        if (row.kind == kind && row.of == box) return std::string(row.caption);
    return {};
}

TEST_P(BoxRow, HasItsLengthItsTextsAndItsFirstState)
{
    const ExpectedBox& expected = GetParam();
    const ControlRow& row = RowNamed(expected.name);
    ControlPanel panel;
    const TextBox* box = TextBoxOf(row, panel);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->MaximumLength(), expected.length);
    EXPECT_EQ(box->Text(), expected.initial);
    EXPECT_EQ(CaptionOf(ControlKind::Label, row.name), expected.caption);
    EXPECT_EQ(CaptionOf(ControlKind::Hint, row.name), expected.hint);
    EXPECT_EQ(row.locked, expected.locked);
    EXPECT_EQ(StartsHidden(row), expected.hidden);
    EXPECT_EQ(!box->Enabled(), expected.disabled);
    EXPECT_EQ(row.toolTip, row.name == "Text6" ? "Inserire cifre senza punto decimale" : "");
}

INSTANTIATE_TEST_SUITE_P(Boxes, BoxRow, ::testing::ValuesIn(kBoxes),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ControlTable, HoldsNoOtherBox)
{
    std::size_t boxes = 0;
    for (const ControlRow& row : ControlTable())
        boxes += row.kind == ControlKind::TextBox ? 1 : 0;
    EXPECT_EQ(boxes, std::size(kBoxes));
}

TEST(ControlTable, NamesFramesTabsHeadingsAndIndicatorAsTheOperatorReadsThem)
{
    const std::pair<const char*, const char*> rows[] = {
        {"Scaricodati", "Tar Vex Manager"},
        {"TabStrip1_1", "Header Data"},
        {"TabStrip1_2", "Download Data"},
        {"TabStrip1_3", "Setup Tar Vex"},
        {"HeadingFrame1", "Blocks Header"},
        {"HeadingFrame2", "Download Data"},
        {"HeadingControlPanel", "Control Panel"},
        {"Frame1", ""},
        {"Frame2", ""},
        {"Frame3", ""},
        {"Frame4", " Zero/Gain "},
        {"Frame1parametri", " Parameters"},
        {"Frameserial", " Serial Port"},
        {"Frame1a", " Date / Time "},
        {"LabelDate", "Date  :"},
        {"LabelTime", "Time  :"},
        {"Label22",
         "To reset gain and zero parameters with the Tar Vex default values press this button"},
        {"Label34", "WAIT DATA TRASMISSION ONGOING"},
        {"Shape1", ""},
        {"Picture1", ""},
    };
    for (const auto& [name, caption] : rows)
        EXPECT_EQ(RowNamed(name).caption, caption) << name;
    for (const char* hidden : {"Frame2", "Frame3", "Label34", "Shape1", "Picture1", "Label29",
                               "Label30", "Label31", "Label32", "Label33", "LabelText15"})
        EXPECT_TRUE(StartsHidden(RowNamed(hidden))) << hidden;
    for (const char* shown : {"Frame1", "Label22", "Label28", "LabelText2", "HintText6"})
        EXPECT_FALSE(StartsHidden(RowNamed(shown))) << shown;
}

TEST(ControlTable, NamesEachControlOnceAndPutsItOnOneNamedBefore)
{
    std::set<std::string_view> names;
    for (const ControlRow& row : ControlTable()) {
        EXPECT_TRUE(row.parent.empty() || names.contains(row.parent)) << row.name;
        EXPECT_TRUE(names.insert(row.name).second) << row.name << " is there twice";
    }
}

TEST(ControlTable, GivesEveryControlANameThatAPersonUnderstands)
{
    for (const ControlRow& row : ControlTable())
        EXPECT_GE(AccessibleNameOf(row).size(), 2U) << row.name;
}

/// Who hears the name must find the control by what another reads on the screen.
TEST(ControlTable, BeginsEachNameWithTheCaptionAndSaysMoreInTheDescription)
{
    int captions = 0;
    for (const ControlRow& row : ControlTable()) {
        const std::string caption = row.kind == ControlKind::TextBox
                                        ? CaptionOf(ControlKind::Label, row.name)
                                        : std::string(row.caption);
        const std::size_t first = caption.find_first_not_of(' ');
        if (first == std::string::npos) continue;
        const std::size_t last = caption.find_last_not_of(" :");
        EXPECT_TRUE(AccessibleNameOf(row).starts_with(caption.substr(first, last - first + 1)))
            << row.name << ": " << AccessibleNameOf(row);
        ++captions;
    }
    EXPECT_GE(captions, 80);
    EXPECT_EQ(AccessibleNameOf(RowNamed("Text2")), "Block Number (01-30)");
    EXPECT_EQ(AccessibleNameOf(RowNamed("Command8")), "Read All Blocks");
    EXPECT_EQ(AccessibleDescriptionOf(RowNamed("Command8")),
              "Read the headers of all blocks from the unit");
}

TEST(ControlTable, FailsForAnUnknownName)
{
    EXPECT_THROW(RowNamed("Text99"), std::out_of_range);
}

TEST(CommandTable, HoldsEveryCommandAtItsPlaceWithTheFileOfItsHandler)
{
    int place = static_cast<int>(Command::None);
    for (const CommandRow& row : CommandTable()) {
        EXPECT_EQ(static_cast<int>(row.command), ++place);
        ASSERT_NE(row.run, nullptr) << place;
        const CommandEntry& entry = EntryOf(row.command);
        EXPECT_TRUE(std::filesystem::exists(kSources / "src" / entry.source)) << entry.name;
    }
    EXPECT_EQ(place, static_cast<int>(Command::ShowDelayDialog));
}

/// To renew the page after a change of the table, run this test with TARVEX_RENEW_DOCS set.
TEST(ControlPage, IsInTheDocumentsAsTheTableSays)
{
    const std::filesystem::path page = kSources / "docs" / "controls.md";
    if (std::getenv("TARVEX_RENEW_DOCS") != nullptr) WriteFile(page, ControlPage());
    EXPECT_EQ(FileBytes(page), ControlPage());
}

} // namespace

} // namespace tarvex::tests
