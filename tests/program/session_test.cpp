#include "program/program_test.h"

#include <QPushButton>

namespace tarvex::tests
{
namespace
{

class SessionTest : public ProgramTest
{
};

TEST_F(SessionTest, StartsWithRecordOneOnThePanelAndThirtyDefaultHeadersInTheFile)
{
    Start();

    EXPECT_EQ(AtPanel().Text("Text2"), "01");
    EXPECT_EQ(AtPanel().Text("Text3"), "CLIENT 1");
    EXPECT_EQ(std::filesystem::file_size(folder / "intestazione"), 2310U);
    EXPECT_FALSE(AtPanel().Find<QPushButton>("command3d1")->isEnabled());
    EXPECT_TRUE(boxes.texts.isEmpty());
}

TEST_F(SessionTest, ReadBlockFillsThePanelFromTheUnit)
{
    Start({"--fill", "7:client=ROSSI,site=DIGA A,tube=T12,depth=12.5,step=0.5,guides=4,nlet=03"});
    AtPanel().Type("Text2", "07");

    AtPanel().Click("Command3");

    EXPECT_EQ(AtPanel().Text("Text3"), "ROSSI   ");
    EXPECT_EQ(AtPanel().Text("Text4"), "DIGA A  ");
    EXPECT_EQ(AtPanel().Text("Text5"), "T12 ");
    EXPECT_EQ(AtPanel().Text("Text6"), "012");
    EXPECT_EQ(AtPanel().Text("Text13"), "5");
    EXPECT_EQ(AtPanel().Text("Text8"), "4");
    EXPECT_EQ(AtPanel().Text("Text10"), "03");
    EXPECT_FALSE(AtPanel().IsShown("Label34"));
    EXPECT_TRUE(boxes.texts.isEmpty());
}

TEST_F(SessionTest, ADownloadLeavesItsThreeFilesInTheChosenFolder)
{
    Start({"--fill", "7:client=ROSSI,site=DIGA A,tube=T12,depth=12.5,step=0.5,guides=2,nlet=03"});
    AtPanel().ShowTab(2);
    AtPanel().Type("numblocco", "07");
    AtPanel().Click("Command10");
    QWidget* chooser = ShownForm("Form6");
    ASSERT_TRUE(
        WaitFor([&] { return chooser->findChild<QPushButton*>("command3d1")->isEnabled(); }));
    Operator(chooser).Click("command3d1");

    AtPanel().Click("command3d1");

    const auto reports = folder / "dati";
    const std::string name = "ROSSI   -DIGA A  -T12 -03-";
    EXPECT_EQ(std::filesystem::file_size(reports / (name + "dat.dat")), 798U);
    EXPECT_EQ(std::filesystem::file_size(reports / "datiram.dat"), 113U * (25 + 2));
    EXPECT_EQ(std::filesystem::file_size(reports / (name + "num.dat")), 113U * (25 + 4));
    EXPECT_TRUE(WaitFor([&] { return AtPanel().Text("Text17") == "06280"; }));
    EXPECT_EQ(AtPanel().Text("Text1"), "");
    EXPECT_TRUE(boxes.texts.isEmpty());
}

TEST_F(SessionTest, ClosingThePanelAtRestEndsTheProgramWithStatusZero)
{
    Start();

    program->MainForm()->close();

    EXPECT_TRUE(program->End().Ended());
    EXPECT_EQ(program->End().Status(), 0);
}

} // namespace
} // namespace tarvex::tests
