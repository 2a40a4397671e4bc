#include "program/program_test.h"
#include "program/typed_name.h"

#include <QAbstractButton>

#include <system_error>

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;

class OddStartFolderTest : public ProgramTest
{
protected:
    /// Goes into a folder that is deleted then, as on a stick that is pulled.
    void GoWhereNothingIsLeft()
    {
        fs::create_directory(folder / "gone");
        fs::current_path(folder / "gone");
        fs::remove(folder / "gone");
    }

    /// Goes into a folder of an older machine, and starts the program and the unit there.
    void StartInCitta()
    {
        fs::create_directories(site / "dati");
        fs::current_path(site);
        unit = std::make_unique<UnitProcess>(folder.Path(), QStringList{});
        fs::create_symlink(folder / "com1", site / "com1");
        StartIn(site);
    }

    const fs::path site = folder / "Citt\xE0";
};

TEST_F(OddStartFolderTest, AFolderThatIsGoneGivesTheLastDefaultUnderNumberOne)
{
    GoWhereNothingIsLeft();
    std::error_code gone;
    StartIn(fs::current_path(gone));
    ASSERT_TRUE(gone);
    EXPECT_EQ(AtPanel().Text("Text2"), "01");
    EXPECT_EQ(AtPanel().Text("Text3"), "CLIENT30");
    EXPECT_TRUE(AtPanel().Find<QAbstractButton>("ssOption1_0")->isChecked());

    AtPanel().Click("sscommand10");
    AtPanel().ShowTab(2);
    AtPanel().Click("Command10");
    ASSERT_NE(ShownForm("Form6"), nullptr);

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_FALSE(program->End().Ended());
}

TEST_F(OddStartFolderTest, AFolderOutsideUnicodeHoldsTheHeaderTableAndTheReports)
{
    StartInCitta();
    EXPECT_EQ(fs::file_size(site / "intestazione"), 2310U);

    AtPanel().ShowTab(2);
    AtPanel().Click("Command10");
    QWidget* chooser = ShownForm("Form6");
    auto* ok = chooser->findChild<QAbstractButton*>("command3d1");
    EXPECT_TRUE(ok->isEnabled());
    ok->click();
    EXPECT_EQ(program->State().reportFolder, site / "dati");

    AtPanel().Click("command3d1");

    EXPECT_TRUE(fs::exists(site / "dati" / "datiram.dat"));
    EXPECT_EQ(NamesIn(site / "dati").size(), 3U);
    EXPECT_TRUE(boxes.texts.isEmpty());
}

TEST_F(OddStartFolderTest, FileTakesAHeaderFileInAFolderOutsideUnicode)
{
    StartInCitta();
    WriteFile(site / "dati" / "table", "ROSSI   " + std::string(69, 'x'));
    const TypedName operatorTypes("table");
    AtPanel().ChooseService("File");
    EXPECT_TRUE(WaitFor([&] { return program->State().headerFilePath.filename() == "table"; }));
    EXPECT_EQ(program->State().headerFilePath, site / "dati" / "table");
    EXPECT_EQ(AtPanel().Text("Text3"), "ROSSI   ");
    EXPECT_FALSE(program->End().Ended());
}

TEST_F(OddStartFolderTest, DefaultMakesAHeaderFileInAFolderOutsideUnicode)
{
    StartInCitta();
    const TypedName operatorTypes("made");
    AtPanel().ChooseService("Default");
    EXPECT_TRUE(WaitFor([&] { return fs::exists(site / "made"); }));
    EXPECT_EQ(fs::file_size(site / "made"), 2310U);
    EXPECT_FALSE(program->End().Ended());
}

} // namespace
} // namespace tarvex::tests
