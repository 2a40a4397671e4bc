#include "program/program_test.h"

#include <QHeaderView>
#include <QTableView>
#include <QtTest>

namespace tarvex::tests
{
namespace
{

/// The survey database, from the service list to the header file.
class DatabaseProgramTest : public ProgramTest
{
};

TEST_F(DatabaseProgramTest, AMarkedTubeComesBackWithItsNextReadoutNumber)
{
    Start({"--fill", "1:client=ROSSI,site=DIGA A,tube=T12,depth=12.5,nlet=00"});
    AtPanel().Click("Command8");
    AtPanel().ChooseService("Database Tar Vex");
    QWidget* panel = ShownForm("Form4");

    Operator(panel).Click("ssCommand2");
    auto* grid = ShownForm("Form5")->findChild<QTableView*>("DataGrid1");
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->model()->rowCount(), 30);
    const int mark = grid->horizontalHeader()->logicalIndex(0);
    EXPECT_EQ(grid->model()->headerData(mark, Qt::Horizontal).toString(), "b");
    grid->setCurrentIndex(grid->model()->index(0, mark));
    QTest::keyClicks(grid, "5"); // the editor stays open
    Operator(panel).Click("Command1");

    EXPECT_TRUE(boxes.texts.isEmpty());
    const std::string record = FileBytes(folder / "intestazione").substr(4U * 77, 77);
    EXPECT_EQ(record.substr(0, 24), "ROSSI   DIGA A  T12 0125");
    EXPECT_EQ(record.substr(30, 2), "01");
    EXPECT_EQ(AtPanel().Text("Text2"), "01");
    EXPECT_TRUE(std::filesystem::exists(folder / "tar_vex.mdb"));
}

TEST_F(DatabaseProgramTest, AFileThatIsNoDatabaseIsLeftAloneAndReported)
{
    Start();
    WriteFile(folder / "tar_vex.mdb", "this is somebody's text, and stays it");
    AtPanel().ChooseService("Database Tar Vex");

    Operator(ShownForm("Form4")).Click("Command1");

    EXPECT_EQ(boxes.texts, QStringList{"Attention: Invalid DEPTH value"});
    EXPECT_EQ(FileBytes(folder / "tar_vex.mdb"), "this is somebody's text, and stays it");
}

} // namespace
} // namespace tarvex::tests
