#include "program/program_test.h"

#include <QAbstractButton>

namespace tarvex::tests
{
namespace
{

const QString kNotConnected = QStringLiteral("Attention: TAR--VEX not connected");
const QString kActivateClock =
    QStringLiteral("ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?");

/// The tab "Setup Tar Vex" and the header file's commands, in the window.
class SettingsProgramTest : public ProgramTest
{
protected:
    void AtSetup(const QStringList& unitOptions)
    {
        Start(unitOptions);
        AtPanel().ShowTab(3);
    }

    void TypeClock(const QString& day, const QString& hours)
    {
        AtPanel().Type("Text2a", "14");
        AtPanel().Type("Text1a", "04");
        AtPanel().Type("Text13a", day);
        AtPanel().Type("Text14a", hours);
        AtPanel().Type("Text3a", "15");
        AtPanel().Type("Text4a", "30");
    }
};

TEST_F(SettingsProgramTest, ReadClockShowsTheUnitsClock)
{
    AtSetup({"--clock", "261121093015", "--clock-stopped"});

    AtPanel().Click("ssCommand3");

    EXPECT_EQ(AtPanel().Text("Text2a"), "26");
    EXPECT_EQ(AtPanel().Text("Text1a"), "11");
    EXPECT_EQ(AtPanel().Text("Text13a"), "21");
    EXPECT_EQ(AtPanel().Text("Text14a"), "09");
    EXPECT_EQ(AtPanel().Text("Text3a"), "30");
    EXPECT_EQ(AtPanel().Text("Text4a"), "15");
    EXPECT_TRUE(boxes.texts.isEmpty());
}

TEST_F(SettingsProgramTest, WriteClockAsksAndSetsTheUnitsClock)
{
    AtSetup({"--clock-stopped"});
    TypeClock("23", "10");

    AtPanel().Click("ssCommand4");
    AtPanel().Type("Text13a", "01");
    AtPanel().Click("ssCommand3");

    EXPECT_EQ(boxes.texts, QStringList{kActivateClock});
    EXPECT_EQ(AtPanel().Text("Text13a"), "23");
    EXPECT_EQ(AtPanel().Text("Text4a"), "30");
}

TEST_F(SettingsProgramTest, ClockAndDelayReportASilentUnit)
{
    AtSetup({"--fault", "silent@wake1+"});
    TypeClock("23", "10");

    AtPanel().Click("ssCommand3");
    AtPanel().Click("ssCommand4");
    AtPanel().Click("Command6scrivi");

    EXPECT_EQ(boxes.texts,
              (QStringList{kNotConnected, kActivateClock, kNotConnected, kNotConnected}));
    EXPECT_FALSE(AtPanel().IsShown("Label34"));
}

TEST_F(SettingsProgramTest, ClockAndDelayEndInSilenceWithoutAPort)
{
    StartAlone();
    AtPanel().ShowTab(3);

    AtPanel().Click("ssCommand3");
    AtPanel().Click("Command6scrivi");

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_EQ(AtPanel().Text("Text2a"), "");
    EXPECT_FALSE(AtPanel().IsShown("Label34"));
}

TEST_F(SettingsProgramTest, TheDelayGoesToTheUnitAsAPlainNumber)
{
    AtSetup({"--memory", "unit.bin"});
    AtPanel().Type("Text16rt", "05");

    AtPanel().Click("Command6scrivi");
    unit->Stop();

    EXPECT_EQ(FileBytes(folder / "unit.bin").substr(0xF0, 2), std::string("5\0", 2));
}

TEST_F(SettingsProgramTest, AnotherPortIsUsedByTheNextCommand)
{
    AtSetup({});
    std::filesystem::rename(folder / "com1", folder / "com3");
    std::filesystem::create_symlink(folder / "nowhere", folder / "com1");

    AtPanel().Click("ssOption1_2");
    AtPanel().Click("Command3");

    EXPECT_EQ(program->State().comPortNumber, 3);
    EXPECT_EQ(AtPanel().Text("Text3").size(), 8);
    std::filesystem::remove(folder / "com1");
}

TEST_F(SettingsProgramTest, StepsAndCopiesGoThroughTheHeaderFile)
{
    Start();
    AtPanel().Type("Text3", "first");

    AtPanel().Click("sscommand11");
    AtPanel().Click("sscommand10");

    EXPECT_EQ(AtPanel().Text("Text2"), "03");
    EXPECT_EQ(AtPanel().Text("Text3"), "CLIENT 3");
    AtPanel().Click("sscommand9");
    EXPECT_EQ(AtPanel().Text("Text2"), "02");
    EXPECT_EQ(AtPanel().Text("Text3"), "FIRST   ");
    EXPECT_EQ(FileBytes(folder / "intestazione").substr(0, 8), "FIRST   ");
}

} // namespace
} // namespace tarvex::tests
