#include "core/start_up.h"
#include "panel/forms/forms_test.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <gmock/gmock.h>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

class SettingsDialogs : public FormsTest
{
protected:
    SettingsDialogs()
    {
        LoadMainForm(panel, state, [this] { return folder.Path(); });
    }

    static void TypeOver(const char* window, const char* box, const QString& text)
    {
        auto& edit = Control<QLineEdit>(window, box);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
    }
};

TEST_F(SettingsDialogs, EachStoresThePanelWhenItLoads)
{
    panel.header[HeaderBox::Client].SetText("FIRST");
    forms.ShowPortDialog();
    EXPECT_EQ(FileBytes(folder / "intestazione").substr(0, 8), "FIRST   ");
    panel.header[HeaderBox::Client].SetText("SECOND");
    forms.ShowClockDialog();
    EXPECT_EQ(FileBytes(folder / "intestazione").substr(0, 8), "SECOND  ");
    panel.header[HeaderBox::Client].SetText("THIRD");
    forms.ShowDelayDialog();
    EXPECT_EQ(FileBytes(folder / "intestazione").substr(0, 8), "THIRD   ");
}

TEST_F(SettingsDialogs, AStoreThatFailsEndsTheProgram)
{
    state.currentBlock = 0;
    boxes.Expect("Run-time error: Bad record number 0, writing " + state.headerFilePath.string());

    forms.ShowClockDialog();

    EXPECT_TRUE(end.Ended());
    EXPECT_EQ(end.Status(), 1);
}

TEST_F(SettingsDialogs, ThePortDialogShowsNoCurrentChoiceAndChooses)
{
    forms.ShowPortDialog();

    EXPECT_EQ(Window("Form1").windowTitle(), "Serial port RS232");
    EXPECT_EQ(Control<QGroupBox>("Form1", "Frameserial").title(), "Serial port");
    for (const char* option : {"ssOption1_0", "ssOption1_1", "ssOption1_2", "ssOption1_3"}) {
        EXPECT_FALSE(Control<QAbstractButton>("Form1", option).isChecked()) << option;
    }
    QTest::mouseClick(&Control<QAbstractButton>("Form1", "ssOption1_2"), Qt::LeftButton);
    EXPECT_EQ(state.comPortNumber, 3);
    EXPECT_TRUE(Control<QAbstractButton>("Form1", "ssOption1_2").isChecked());
    EXPECT_EQ(panel.portOptions.Selected(), 0);

    EXPECT_EQ(Control<QAbstractButton>("Form1", "command3d1close").text(), "&Close");
    Press("Form1", "command3d1close");
    EXPECT_TRUE(WindowsNamed("Form1").empty());
}

TEST_F(SettingsDialogs, TheClockDialogReadsWithoutFillingItsFieldsOrShowingAnIndicator)
{
    unit.answers["H\r"] = "260112093015\r\n";
    forms.ShowClockDialog();

    Press("Form2", "ssCommand3");

    EXPECT_EQ(Window("Form2").windowTitle(), "Set Clock");
    EXPECT_THAT(port.sent, ElementsAre("}", "H\r"));
    EXPECT_EQ(Control<QLineEdit>("Form2", "Text2a").text(), "");
    EXPECT_EQ(panel.clock.year.Text(), "");
    EXPECT_FALSE(panel.waitIndicator.label.Visible());
    EXPECT_FALSE(port.IsOpen());
}

TEST_F(SettingsDialogs, TheClockDialogWritesItsOwnFieldsWithoutAnyCheck)
{
    forms.ShowClockDialog();
    TypeOver("Form2", "Text13a", "99");
    TypeOver("Form2", "Text14a", "x");
    boxes.ExpectQuestion("ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?", true);

    Press("Form2", "ssCommand4");

    EXPECT_THAT(port.sent, ElementsAre("}", "G99x\r"));
}

TEST_F(SettingsDialogs, TheClockDialogStartsTheClock)
{
    forms.ShowClockDialog();
    boxes.ExpectQuestion("ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?", true);

    Press("Form2", "ssCommand2");

    EXPECT_THAT(port.sent, ElementsAre("}", "c\r"));
}

TEST_F(SettingsDialogs, ADialogClosedInsideItsOwnWaitLetsTheCommandEnd)
{
    forms.ShowClockDialog();
    TypeOver("Form2", "Text13a", "12");
    TypeOver("Form2", "Text14a", "10");
    boxes.ExpectQuestion("ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?", true);
    unit.onWake = [](int) {
        Window("Form2").close();
        DeleteClosed();
    };

    Press("Form2", "ssCommand4");

    EXPECT_TRUE(WindowsNamed("Form2").empty());
    EXPECT_THAT(port.sent, ElementsAre("}", "G1210\r"));
    EXPECT_FALSE(port.IsOpen());
}

TEST_F(SettingsDialogs, TheDelayDialogWritesThePlainNumber)
{
    forms.ShowDelayDialog();
    EXPECT_EQ(Window("Form3").windowTitle(), "Delay for Automatic Cycle");
    EXPECT_EQ(Control<QAbstractButton>("Form3", "Command6scrivi").text(), "Set");
    EXPECT_EQ(Control<QLineEdit>("Form3", "Text16rt").text(), "3");
    TypeOver("Form3", "Text16rt", "05");

    Press("Form3", "Command6scrivi");

    EXPECT_THAT(port.sent, ElementsAre("}", "b000F05\r"));
}

TEST_F(SettingsDialogs, TheDelayDialogChecksBeforeItWritesWhenAPressComesBeforeTheActivation)
{
    forms.ShowDelayDialog();
    QWidget& dialog = Window("Form3");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    TypeOver("Form3", "Text16rt", "2");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));

    boxes.Expect("Attention: Delay is too low");
    const auto& button = Control<QAbstractButton>("Form3", "Command6scrivi");
    QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {},
                      button.mapTo(&dialog, button.rect().center()));

    EXPECT_EQ(boxes.shown, 1);
    EXPECT_THAT(port.sent, ElementsAre("}", "b000F03\r"));
}

} // namespace
} // namespace tarvex::tests
