#include "panel/window_test.h"

#include "panel/window/control_table.h"
#include "support/nameless_widgets.h"

#include <QApplication>
#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QTabBar>
#include <QToolTip>

namespace tarvex::tests
{

using namespace panel;

namespace
{

using MainForm = WindowTest;

std::string CaptionOf(const QWidget& widget)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text().toStdString();
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text().toStdString();
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return group->title().toStdString();
    return {};
}

TEST_F(MainForm, IsNamedAndTitled)
{
    EXPECT_EQ(window->objectName(), "Scaricodati");
    EXPECT_EQ(window->windowTitle(), "Tar Vex Manager");
}

TEST_F(MainForm, GivesEveryWidgetAName)
{
    const WindowsOnView found = WalkWindows();
    EXPECT_EQ(found.count, 1);
    EXPECT_EQ(found.nameless, std::vector<std::string>{});
}

TEST_F(MainForm, HoldsEveryControlOfTheTableWithItsTexts)
{
    for (const ControlRow& row : ControlTable()) {
        if (row.parent.empty() || row.kind == ControlKind::Tab) continue;
        const auto& widget = Named(std::string(row.name));
        EXPECT_EQ(CaptionOf(widget), row.caption) << row.name;
        EXPECT_EQ(widget.accessibleName().toStdString(), AccessibleNameOf(row)) << row.name;
        EXPECT_EQ(widget.toolTip().toStdString(), row.toolTip) << row.name;
        EXPECT_EQ(widget.isHidden(), StartsHidden(row)) << row.name;
    }
}

TEST_F(MainForm, ShowsTheFocusMarkOfEveryButtonWhole)
{
    int marked = 0;
    for (const ControlRow& row : ControlTable()) {
        auto* button = window->findChild<QAbstractButton*>(QString::fromUtf8(row.name.data()));
        if (button == nullptr || !button->isVisible() || !button->isEnabled()) continue;
        button->setFocus();
        QCoreApplication::processEvents();
        const auto* mark = window->findChild<QWidget*>("FocusMark");
        ASSERT_NE(mark, nullptr);
        ASSERT_TRUE(mark->isVisible()) << row.name;
        EXPECT_TRUE(mark->visibleRegion().boundingRect() == mark->rect()) << row.name;
        ++marked;
    }
    EXPECT_GE(marked, 10);
}

TEST_F(MainForm, HasItsThreeTabs)
{
    const auto& strip = Named<QTabBar>("TabStrip1");
    ASSERT_EQ(strip.count(), 3);
    EXPECT_EQ(strip.tabText(0), "Header Data");
    EXPECT_EQ(strip.tabText(1), "Download Data");
    EXPECT_EQ(strip.tabText(2), "Setup Tar Vex");
}

TEST_F(MainForm, TellsAssistiveToolsWhatABoxMayHold)
{
    EXPECT_EQ(Edit("Text8").accessibleDescription(), "Number of guides: 2 - 4");
    EXPECT_EQ(Edit("Text16rt").accessibleDescription(), "From 3 to 9");
    EXPECT_EQ(Named<QLabel>("LabelText3").buddy(), &Edit("Text3"));
}

TEST_F(MainForm, ShowsOneFrameATab)
{
    const auto shown = [this] {
        std::string frames;
        for (const char* frame : {"Frame1", "Frame2", "Frame3"})
            if (Named(frame).isVisible()) frames += frame;
        return frames;
    };
    EXPECT_EQ(shown(), "Frame1");
    ClickTab(2);
    EXPECT_EQ(shown(), "Frame2");
    ClickTab(3);
    EXPECT_EQ(shown(), "Frame3");
    PressKey(Qt::Key_Left);
    EXPECT_EQ(shown(), "Frame2");
    ClickTab(1);
    EXPECT_EQ(shown(), "Frame1");
}

TEST_F(MainForm, KeepsItsPlacesWhenTheWaitIndicatorComesAndWhenTabsTurn)
{
    const auto places = [this] {
        QApplication::processEvents();
        std::string all;
        for (const char* name : {"Command3", "Command12", "TabStrip1", "Frame1", "Text12"}) {
            const QRect place = Named(name).geometry();
            all += std::to_string(place.x()) + "," + std::to_string(place.y()) + "," +
                   std::to_string(place.width()) + "," + std::to_string(place.height()) + " ";
        }
        return all;
    };
    const std::string before = places();
    panel.waitIndicator.label.Show();
    panel.waitIndicator.ground.Show();
    EXPECT_TRUE(Named("Label34").isVisible());
    EXPECT_TRUE(Named("Shape1").isVisible());
    EXPECT_EQ(places(), before);
    ClickTab(3);
    ClickTab(1);
    panel.waitIndicator.label.Hide();
    panel.waitIndicator.ground.Hide();
    EXPECT_FALSE(Named("Label34").isVisible());
    EXPECT_EQ(places(), before);
}

TEST_F(MainForm, FitsASmallLaptopWithItsTitleBarAndATaskBar)
{
    EXPECT_LE(window->minimumSizeHint().width(), 1024);
    EXPECT_LE(window->minimumSizeHint().height(), 545);
    EXPECT_LE(window->width(), 1024);
    EXPECT_LE(window->height(), 570);
}

TEST_F(MainForm, GoesThroughTheHeaderByTabAndThenToTheLeftColumn)
{
    std::string way;
    for (int i = 0; i < 27; ++i) {
        way += Focused() + " ";
        PressKey(Qt::Key_Tab);
    }
    EXPECT_EQ(way, "Text2 sscommand9 sscommand10 sscommand11 Text3 Text4 Text5 Text6 Text13 Text7 "
                   "Text8 Text9 Text10 Text11 Text12 Command3 Command8 Command6 sscommand6 "
                   "Command7 ssCommand8 Command11 Command12 TabStrip1 Text2 sscommand9 "
                   "sscommand10 ");
}

TEST_F(MainForm, FollowsTheModelsButtons)
{
    EXPECT_TRUE(Button("sscommand9").isEnabled());
    EXPECT_FALSE(Button("command3d1").isEnabled());
    panel.downloadButton.Enable();
    EXPECT_TRUE(Button("command3d1").isEnabled());
    DisableFileCommandGroup(panel);
    for (const char* name : {"sscommand9", "sscommand10", "sscommand6", "Command3", "Command6",
                             "Command4", "Command7"})
        EXPECT_FALSE(Button(name).isEnabled()) << name;
    EXPECT_TRUE(Button("sscommand11").isEnabled());
    panel.databaseButton.Show();
    EXPECT_TRUE(Button("Command9").isVisible());
}

TEST_F(MainForm, OpensTheSideForms)
{
    ClickOn("Command11");
    ClickOn("Command12");
    ClickTab(2);
    ClickOn("Command10");
    EXPECT_EQ(forms.opened, (std::vector<std::string>{"about", "manual", "folder chooser"}));
}

TEST_F(MainForm, StepsTheDownloadBlockAndTheRecords)
{
    ClickOn("sscommand10");
    EXPECT_EQ(Edit("Text2").text(), "02");
    EXPECT_EQ(Edit("Text3").text(), "CLIENT 2");
    ClickOn("sscommand9");
    EXPECT_EQ(Edit("Text3").text(), "CLIENT 1");
    ClickOn("sscommand11");
    EXPECT_EQ(Edit("Text2").text(), "02");
    EXPECT_EQ(Edit("Text3").text(), "CLIENT 1");
    ClickTab(2);
    ClickOn("Command1");
    ClickOn("Command1");
    ClickOn("Command2");
    EXPECT_EQ(Edit("numblocco").text(), "02");
}

TEST_F(MainForm, RunsTheCommandsOfTheSetupTab)
{
    ClickTab(3);
    unit.answers["H\r"] = "140423101530\r\n";
    ClickOn("ssCommand3");
    EXPECT_EQ(Edit("Text13a").text(), "23");
    EXPECT_EQ(Edit("Text4a").text(), "30");
    boxes.ExpectQuestion("ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?", true);
    ClickOn("ssCommand4");
    EXPECT_EQ(port.sent.back(), "G140423101530\r");
    TypeInto("Text16rt", "05");
    ClickOn("Command6scrivi");
    EXPECT_EQ(port.sent.back(), "b000F05\r");
    boxes.ExpectQuestion("ATTENTION: SET DEFAULT ZERO/GAIN, WOULD YOU LIKE TO CONTINUE ?", true);
    ClickOn("Command13");
    EXPECT_EQ(port.sent.back().substr(0, 6), "D1D000");
}

TEST_F(MainForm, RunsTheCommandsOfTheLeftColumn)
{
    const auto firstFrame = [this](const char* button) {
        port.sent.clear();
        ClickOn(button);
        return port.sent.empty() ? std::string() : port.sent.at(1).substr(0, 6);
    };
    EXPECT_EQ(firstFrame("Command3"), "a00000");
    EXPECT_EQ(firstFrame("Command8"), "a00000");
    boxes.ExpectQuestion(
        "ATTENTION: ALL BLOCKS MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?", true);
    EXPECT_EQ(firstFrame("Command6"), "C00000");
    const char* const allBlock =
        "ATTENTION: ALL BLOCK MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?";
    boxes.ExpectQuestion(allBlock, true);
    EXPECT_EQ(firstFrame("sscommand6"), "C00000");
    boxes.ExpectQuestion(allBlock, true);
    EXPECT_EQ(firstFrame("ssCommand8"), "C00000");
    boxes.ExpectQuestion(allBlock, true);
    EXPECT_EQ(firstFrame("Command7"), "C00000");
}

TEST_F(MainForm, DownloadsABlockByItsButton)
{
    state.reportFolder = folder.Path();
    panel.downloadButton.Enable();
    ClickTab(2);
    ClickOn("command3d1");
    EXPECT_EQ(port.sent.at(1), "a00000\r");
    EXPECT_TRUE(std::filesystem::exists(folder / "datiram.dat"));
}

TEST_F(MainForm, ChoosesThePortByClickAndByKey)
{
    EXPECT_TRUE(Button("ssOption1_0").isChecked());
    ClickTab(3);
    ClickOn("ssOption1_2");
    EXPECT_EQ(state.comPortNumber, 3);
    EXPECT_EQ(panel.portOptions.Selected(), 2);
    PressKey(Qt::Key_Down);
    EXPECT_EQ(state.comPortNumber, 4);
    EXPECT_TRUE(Button("ssOption1_3").isChecked());
    EXPECT_FALSE(Button("ssOption1_2").isChecked());
}

TEST_F(MainForm, ShowsAPortChosenByTheProgram)
{
    panel.portOptions.Select(1);
    EXPECT_EQ(state.comPortNumber, 2);
    EXPECT_TRUE(Button("ssOption1_1").isChecked());
    EXPECT_FALSE(Button("ssOption1_0").isChecked());
}

QString ShowTip(QWidget& widget)
{
    const QPoint at = widget.rect().center();
    QHelpEvent help(QEvent::ToolTip, at, widget.mapToGlobal(at));
    QApplication::sendEvent(&widget, &help);
    const QString shown = QToolTip::text();
    QToolTip::hideText();
    return shown;
}

TEST_F(MainForm, AsksForTheNameOfAPortEachTimeItsTipShows)
{
    ClickTab(3);
    EXPECT_EQ(ShowTip(Button("ssOption1_1")), "device 2, answer 1");
    EXPECT_EQ(ShowTip(Button("ssOption1_1")), "device 2, answer 2");
}

TEST_F(MainForm, BreaksALongTipOfAPortAndDescribesItInOneLine)
{
    portNames.more = ", in use by another program. End that program, then give the command again.";
    ClickTab(3);
    QAbstractButton& option = Button("ssOption1_1");
    const QString tip = ShowTip(option);
    for (const QString& shown : tip.split('\n'))
        EXPECT_LE(shown.size(), 60) << shown.toStdString();
    EXPECT_EQ(option.accessibleDescription().toStdString(), "device 2, answer 1" + portNames.more);
    EXPECT_EQ(QString(tip).replace('\n', ' '), option.accessibleDescription());
}

TEST_F(MainForm, DescribesAPortToAssistiveToolsWhenTheFocusComes)
{
    ClickTab(3);
    Enter("ssOption1_1");
    EXPECT_EQ(Button("ssOption1_1").accessibleDescription(), "device 2, answer 1");
    Enter("ssOption1_0");
    Enter("ssOption1_1");
    EXPECT_EQ(Button("ssOption1_1").accessibleDescription(), "device 2, answer 3");
}

TEST_F(MainForm, EndsTheProgramWhenClosedWithoutAskingAnything)
{
    TypeInto("Text7", "2");
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(end.Ended());
    EXPECT_EQ(end.Status(), 0);
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_EQ(StoredHeader(1).passo.View(), "0");
}

TEST_F(MainForm, EndsTheProgramWithABoxWhenAHandlerOutsideTheRuleFails)
{
    state.headerFilePath = folder / "missing" / "intestazione";
    boxes.Expect("Run-time error: Path/File access error, opening " +
                 state.headerFilePath.string());
    ClickOn("sscommand10");
    EXPECT_TRUE(end.Ended());
    EXPECT_EQ(end.Status(), 1);
    ClickOn("Command11");
    EXPECT_TRUE(forms.opened.empty());
}

TEST(MainFormBeforeItsLoad, ShowsTheFirstTextsAndChoosesThePortAtTheLoad)
{
    TemporaryFolder folder;
    WorkingState state;
    state.comPortNumber = 0;
    ControlPanel panel;
    ScriptedBoxes boxes;
    VirtualWorld world([] {});
    ScriptedPort port;
    RecordedForms forms;
    PlannedFileDialog dialog;
    CountedPortNames names;
    ProgramEnd end;
    Handlers handlers(end, boxes);
    MainWindow window({panel,
                       {port, world, world, boxes, state, &panel.waitIndicator},
                       forms,
                       dialog,
                       folder.Path()},
                      names, handlers, end);
    const auto text = [&window](const char* name) {
        return window.findChild<QLineEdit*>(name)->text();
    };
    EXPECT_EQ(text("Text8"), "2");
    EXPECT_EQ(text("Text3"), "");
    EXPECT_FALSE(window.findChild<QWidget*>("sscommand9")->isEnabled());

    LoadMainForm(panel, state, [&folder] { return folder.Path(); });
    EXPECT_EQ(text("Text3"), "CLIENT 1");
    EXPECT_EQ(text("Text12"), "hhmmss");
    EXPECT_EQ(state.comPortNumber, 1);
    EXPECT_TRUE(window.findChild<QWidget*>("sscommand9")->isEnabled());
}

} // namespace

} // namespace tarvex::tests
