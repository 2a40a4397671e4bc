#include "panel/window/control_table.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace tarvex::panel
{

namespace
{

using Row = ControlRow;
using Kind = ControlKind;
using enum HeaderBox;
using enum CalibrationBox;

constexpr std::string_view kWindow = "Scaricodati";
constexpr std::string_view kToUnit = "Scrittura dati Intestazione a TAR -- VEX";
constexpr std::string_view kFromUnit = "Lettura dati Intestazione da TAR--VEX";

constexpr Row Label(std::string_view name, std::string_view parent, std::string_view caption,
                    std::string_view box = {})
{
    return {.name = name, .kind = Kind::Label, .parent = parent, .caption = caption, .of = box};
}

constexpr Row Hint(std::string_view name, std::string_view parent, std::string_view caption,
                   std::string_view box)
{
    return {.name = name, .kind = Kind::Hint, .parent = parent, .caption = caption, .of = box};
}

constexpr Row Heading(std::string_view name, std::string_view parent, std::string_view caption)
{
    return {.name = name, .kind = Kind::Heading, .parent = parent, .caption = caption};
}

constexpr Row Tab(std::string_view name, std::string_view caption, std::string_view frame)
{
    return {
        .name = name, .kind = Kind::Tab, .parent = "TabStrip1", .caption = caption, .of = frame};
}

constexpr Row Box(std::string_view name, std::string_view parent, std::string_view description,
                  ModelOf model)
{
    return {.name = name,
            .kind = Kind::TextBox,
            .parent = parent,
            .description = description,
            .model = model};
}

/// A box that core/header_boxes.h names.
template <class HeaderOrCalibration>
constexpr Row Box(HeaderOrCalibration box, std::string_view parent, std::string_view description)
{
    return Box(RowOf(box).control, parent, description, box);
}

constexpr Row Button(std::string_view name, std::string_view parent, std::string_view caption,
                     std::string_view description, Command command, ModelOf model = {})
{
    return {.name = name,
            .kind = Kind::Button,
            .parent = parent,
            .caption = caption,
            .description = description,
            .model = model,
            .command = command};
}

constexpr Row Option(std::string_view name, std::string_view parent, std::string_view caption,
                     Command command)
{
    return {.name = name,
            .kind = Kind::Option,
            .parent = parent,
            .caption = caption,
            .model = &ControlPanel::portOptions,
            .command = command};
}

constexpr Row Locked(Row row)
{
    row.locked = true;
    return row;
}

constexpr Row Paced(Row row)
{
    row.paced = true;
    return row;
}

constexpr Row Later(Row row)
{
    row.later = true;
    return row;
}

constexpr Row Called(std::string_view accessibleName, Row row)
{
    row.accessibleName = accessibleName;
    return row;
}

constexpr Row WithTip(std::string_view toolTip, Row row)
{
    row.toolTip = toolTip;
    return row;
}

constexpr std::array kControls = {
    Row{.name = "Scaricodati", .kind = Kind::Frame, .parent = "", .caption = "Tar Vex Manager"},

    Row{.name = "TabStrip1",
        .kind = Kind::TabStrip,
        .parent = kWindow,
        .accessibleName = "Header, download or setup"},
    Tab("TabStrip1_1", "Header Data", "Frame1"),
    Tab("TabStrip1_2", "Download Data", "Frame2"),
    Tab("TabStrip1_3", "Setup Tar Vex", "Frame3"),

    // The header of one block.
    Row{.name = "Frame1",
        .kind = Kind::Frame,
        .parent = kWindow,
        .accessibleName = "Header of one block",
        .model = &ControlPanel::headerFrame},
    Heading("HeadingFrame1", "Frame1", "Blocks Header"),
    Label("LabelText2", "Frame1", "Block Number (01-30)  :", "Text2"),
    Box("Text2", "Frame1", "Block of this header", &ControlPanel::blockNumber),
    Called("- Previous block",
           Button("sscommand9", "Frame1", "-", "Store this header and show the previous block",
                  Command::StepRecordDown, &ControlPanel::previousRecordButton)),
    Called("+ Next block",
           Button("sscommand10", "Frame1", "+", "Store this header and show the next block",
                  Command::StepRecordUp, &ControlPanel::nextRecordButton)),
    Button("sscommand11", "Frame1", " Copy Data", "Store this header and go on with a copy of it",
           Command::CopyHeaderForward),
    Label("LabelText3", "Frame1", "Client  :", RowOf(Client).control),
    Box(Client, "Frame1", "Client of the survey"),
    Label("LabelText4", "Frame1", "Site :", RowOf(Site).control),
    Box(Site, "Frame1", "Site of the survey"),
    Label("LabelText5", "Frame1", "Tube Number  :", RowOf(Tube).control),
    Box(Tube, "Frame1", "Tube of the survey"),
    Label("LabelText6", "Frame1", "Depth  :", RowOf(DepthMetres).control),
    WithTip("Inserire cifre senza punto decimale", Box(DepthMetres, "Frame1", "Whole metres")),
    Called("Depth, tenths", Box(DepthTenths, "Frame1", "Tenths of a metre, 0 or 5")),
    Hint("HintText6", "Frame1", "Max.  100.0 mt.     Max.  200.0 mt.  ",
         RowOf(DepthMetres).control),
    Label("LabelText7", "Frame1", "Step  :", RowOf(Step).control),
    Box(Step, "Frame1", "Half a metre or a metre"),
    Hint("HintText7", "Frame1", "0 = 0,5 mt.          1 = 1 mt", RowOf(Step).control),
    Label("LabelText8", "Frame1", "Guides no  :", RowOf(Guides).control),
    Box(Guides, "Frame1", "Number of guides"),
    Hint("HintText8", "Frame1", "2 - 4", RowOf(Guides).control),
    Label("LabelText9", "Frame1", "North  :", RowOf(North).control),
    Box(North, "Frame1", "Sign and three digits of degrees"),
    Hint("HintText9", "Frame1", "da ±000° a ±360°", RowOf(North).control),
    Label("LabelText10", "Frame1", "Readout no  :", RowOf(Readout).control),
    Box(Readout, "Frame1", "Number of the survey of this tube"),
    Label("LabelText11", "Frame1", "Date  :", RowOf(Date).control),
    Locked(Box(Date, "Frame1", "Day, month, year of the readout")),
    Hint("HintText11", "Frame1", "DDMMYY", RowOf(Date).control),
    Label("LabelText12", "Frame1", "Time  :", RowOf(Time).control),
    Locked(Box(Time, "Frame1", "Hours, minutes, seconds of the readout")),
    Hint("HintText12", "Frame1", "HHMMSS", RowOf(Time).control),
    Label("LabelText15", "Frame1", "FILE NAME :", "Text15"),
    Locked(Box("Text15", "Frame1", "Header file", &ControlPanel::headerFile)),
    Button("sscommand1", "Frame1", "File", "Open a header file", Command::ChooseHeaderFile,
           &ControlPanel::openHeaderFileButton),
    Button("sscommand5", "Frame1", "Default", "Make a header file with default contents",
           Command::CreateDefaultHeaderFile, &ControlPanel::defaultHeaderFileButton),

    // The download.
    Row{.name = "Frame2",
        .kind = Kind::Frame,
        .parent = kWindow,
        .accessibleName = "Download of one block",
        .model = &ControlPanel::downloadFrame},
    Heading("HeadingFrame2", "Frame2", "Download Data"),
    Label("LabelNumblocco", "Frame2", "Block Number (01-30)  :", "numblocco"),
    Box("numblocco", "Frame2", "Block to download", &ControlPanel::downloadBlock),
    Called("- Previous block", Button("Command2", "Frame2", "-", "Previous block to download",
                                      Command::DownloadBlockDown)),
    Called("+ Next block",
           Button("Command1", "Frame2", "+", "Next block to download", Command::DownloadBlockUp)),
    Button("Command10", "Frame2", "Folder", "Folder for the report files",
           Command::ShowFolderChooser),
    Button("command3d1", "Frame2", "Ok", "Download the block", Command::BlockDownload,
           &ControlPanel::downloadButton),
    Label("LabelText1", "Frame2", "FILE NAME :", "Text1"),
    Later(Locked(
        Box("Text1", "Frame2", "Report file that is being written", &ControlPanel::reportFile))),
    Label("Label28", "Frame2", "RAM Address", "Text17"),
    Paced(Locked(
        Box("Text17", "Frame2", "Address of the page being read", &ControlPanel::readAddress))),
    Row{.name = "Picture1",
        .kind = Kind::Picture,
        .parent = "Frame2",
        .accessibleName = "Drawing area",
        .model = &ControlPanel::drawing},
    Button("command3d3", "Frame2", "Cartella", "Enable the download", Command::EnableDownload,
           &ControlPanel::enableDownloadButton),

    // The unit's settings.
    Row{.name = "Frame3",
        .kind = Kind::Frame,
        .parent = kWindow,
        .accessibleName = "Settings of the unit",
        .model = &ControlPanel::setupFrame},
    Row{.name = "Frame4", .kind = Kind::Frame, .parent = "Frame3", .caption = " Zero/Gain "},
    Label("Label22", "Frame4",
          "To reset gain and zero parameters with the Tar Vex default values press this button"),
    Button("Command13", "Frame4", "Reset G/Z", "Reset gain and zero of all blocks in the unit",
           Command::ResetGainZero),
    Label("Label29", "Frame4", "Gain 1° Canale", RowOf(Gain1).control),
    Box(Gain1, "Frame4", "Gain of channel 1"),
    Label("Label31", "Frame4", "Zero 1° Canale", RowOf(Zero1).control),
    Box(Zero1, "Frame4", "Zero of channel 1"),
    Label("Label30", "Frame4", "Gain 2° Canale", RowOf(Gain2).control),
    Box(Gain2, "Frame4", "Gain of channel 2"),
    Label("Label32", "Frame4", "Zero 2° Canale", RowOf(Zero2).control),
    Box(Zero2, "Frame4", "Zero of channel 2"),
    Label("Label33", "Frame4", "Punto", RowOf(Point).control),
    Box(Point, "Frame4", "Number of the point"),
    Button("Command4", "Frame4", "Scrivi", "Without a function", Command::None,
           &ControlPanel::writeCalibrationButton),
    Button("Command5", "Frame4", "Calcola Gain", "Without a function", Command::None,
           &ControlPanel::computeGainButton),
    Row{.name = "Frame1parametri",
        .kind = Kind::Frame,
        .parent = "Frame3",
        .caption = " Parameters"},
    Label("LabelText16rt", "Frame1parametri", "Delay for Automatic Cycle", "Text16rt"),
    Box("Text16rt", "Frame1parametri", {}, &ControlPanel::cycleDelay),
    Hint("HintText16rt", "Frame1parametri", "From 3 to 9", "Text16rt"),
    Button("Command6scrivi", "Frame1parametri", "Write", "Write the delay to the unit",
           Command::WriteCycleDelay),
    Row{.name = "Frameserial", .kind = Kind::Frame, .parent = "Frame3", .caption = " Serial Port"},
    Option("ssOption1_0", "Frameserial", "Com 1", Command::ChoosePort1),
    Option("ssOption1_1", "Frameserial", "Com 2", Command::ChoosePort2),
    Option("ssOption1_2", "Frameserial", "Com 3", Command::ChoosePort3),
    Option("ssOption1_3", "Frameserial", "Com 4", Command::ChoosePort4),
    Row{.name = "Frame1a", .kind = Kind::Frame, .parent = "Frame3", .caption = " Date / Time "},
    Label("LabelDate", "Frame1a", "Date  :"),
    Label("LabelText13a", "Frame1a", "DD", "Text13a"),
    Box("Text13a", "Frame1a", "Day", &ClockBoxes::day),
    Label("LabelText1a", "Frame1a", "MM", "Text1a"),
    Box("Text1a", "Frame1a", "Month", &ClockBoxes::month),
    Label("LabelText2a", "Frame1a", "YY", "Text2a"),
    Box("Text2a", "Frame1a", "Year, two digits", &ClockBoxes::year),
    Label("LabelTime", "Frame1a", "Time  :"),
    Label("LabelText14a", "Frame1a", "hh", "Text14a"),
    Box("Text14a", "Frame1a", "Hours", &ClockBoxes::hours),
    Label("LabelText3a", "Frame1a", "mm", "Text3a"),
    Box("Text3a", "Frame1a", "Minutes", &ClockBoxes::minutes),
    Label("LabelText4a", "Frame1a", "ss", "Text4a"),
    Box("Text4a", "Frame1a", "Seconds", &ClockBoxes::seconds),
    Button("ssCommand3", "Frame1a", "Read Clock", "Read the unit's clock", Command::ReadClock),
    Button("ssCommand4", "Frame1a", "Write Clock", "Write the unit's clock", Command::WriteClock),
    WithTip("Comando solo di servizio",
            Button("ssCommand2", "Frame1a", "Start Clock",
                   "Start the unit's clock, for service only", Command::StartClock,
                   &ControlPanel::startClockButton)),

    // The left column.
    Heading("HeadingControlPanel", kWindow, "Control Panel"),
    WithTip(kFromUnit,
            Button("Command3", kWindow, " Read Block", "Read the header of one block from the unit",
                   Command::ReadBlock, &ControlPanel::readBlockButton)),
    WithTip(kFromUnit,
            Button("Command8", kWindow, " Read All Blocks",
                   "Read the headers of all blocks from the unit", Command::ReadAllBlocks)),
    WithTip(kFromUnit, Button("Command9", kWindow, "Database Tar Vex", "Survey database",
                              Command::OpenDatabase, &ControlPanel::databaseButton)),
    WithTip(kToUnit,
            Button("Command6", kWindow, "Set Block", "Write the header of one block to the unit",
                   Command::SetBlock, &ControlPanel::setBlockButton)),
    WithTip(kToUnit,
            Button("sscommand6", kWindow, "Set All", "Write the headers of all blocks to the unit",
                   Command::SetAll, &ControlPanel::setAllButton)),
    Button("Command7", kWindow, " Reset Block", "Reset one block of the unit", Command::ResetBlock,
           &ControlPanel::resetBlockButton),
    Button("ssCommand8", kWindow, " Total Reset", "Reset all blocks of the unit",
           Command::TotalReset),
    Button("Command11", kWindow, "About", "About this program", Command::ShowAbout),
    Button("Command12", kWindow, "Help", "Open the manual", Command::OpenManual),

    // The wait indicator.
    Row{.name = "Shape1",
        .kind = Kind::Shape,
        .parent = kWindow,
        .accessibleName = "Progress of the exchange",
        .model = &WaitIndicator::ground},
    Row{.name = "Label34",
        .kind = Kind::Label,
        .parent = kWindow,
        .caption = "WAIT DATA TRASMISSION ONGOING",
        .description = "The program waits for the unit",
        .model = &WaitIndicator::label},
};

std::string_view WithoutBlanks(std::string_view caption)
{
    constexpr std::string_view kAround = " :";
    const std::size_t first = caption.find_first_not_of(kAround);
    if (first == std::string_view::npos) return {};
    return caption.substr(first, caption.find_last_not_of(kAround) - first + 1);
}

/// The text of the label or the hint of that box.
std::string_view CaptionBeside(std::string_view box, Kind kind)
{
    const auto* const beside = std::ranges::find_if(
        kControls, [&](const Row& row) { return row.kind == kind && row.of == box; });
    return beside == kControls.end() ? std::string_view() : WithoutBlanks(beside->caption);
}

} // namespace

std::span<const ControlRow> ControlTable()
{
    return kControls;
}

const ControlRow& RowNamed(std::string_view name)
{
    const auto row = std::ranges::find(kControls, name, &ControlRow::name);
    if (row == kControls.end()) throw std::out_of_range("no control " + std::string(name));
    return *row;
}

TextBox* TextBoxOf(const ControlRow& row, ControlPanel& panel)
{
    if (const auto* box = std::get_if<TextBox ControlPanel::*>(&row.model)) return &(panel.**box);
    if (const auto* box = std::get_if<HeaderBox>(&row.model)) return &panel.header[*box];
    if (const auto* box = std::get_if<CalibrationBox>(&row.model)) return &panel.calibration[*box];
    if (const auto* box = std::get_if<TextBox ClockBoxes::*>(&row.model))
        return &(panel.clock.**box);
    return nullptr;
}

Control* ControlOf(const ControlRow& row, ControlPanel& panel)
{
    if (const auto* control = std::get_if<Control ControlPanel::*>(&row.model))
        return &(panel.**control);
    if (const auto* picture = std::get_if<Picture ControlPanel::*>(&row.model))
        return &(panel.**picture);
    if (const auto* part = std::get_if<Control WaitIndicator::*>(&row.model))
        return &(panel.waitIndicator.**part);
    return TextBoxOf(row, panel);
}

bool StartsHidden(const ControlRow& row)
{
    const bool follows = row.kind == Kind::Label || row.kind == Kind::Hint;
    ControlPanel atStart;
    const Control* control =
        ControlOf(follows && !row.of.empty() ? RowNamed(row.of) : row, atStart);
    return control != nullptr && !control->Visible();
}

std::string_view AccessibleNameOf(const ControlRow& row)
{
    if (!row.accessibleName.empty()) return row.accessibleName;
    if (row.kind != Kind::TextBox) return WithoutBlanks(row.caption);
    return CaptionBeside(row.name, Kind::Label);
}

std::string AccessibleDescriptionOf(const ControlRow& row)
{
    std::string description(row.description);
    const std::string_view hint = CaptionBeside(row.name, Kind::Hint);
    if (!description.empty() && !hint.empty()) description += ": ";
    return description.append(hint);
}

} // namespace tarvex::panel
