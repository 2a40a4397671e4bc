#include "program/program_test.h"

#include <QPushButton>

namespace tarvex::tests
{
namespace
{

const QString kBlocksWillBeLost =
    QStringLiteral("ATTENTION: ALL BLOCKS MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?");
const QString kBlockWillBeLost =
    QStringLiteral("ATTENTION: ALL BLOCK MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?");

/// The commands that write headers, in the window, on the line and in the unit's memory. Message
/// boxes are answered with OK.
class BlockCommandsTest : public ProgramTest
{
protected:
    /// The unit's header of a block, as Read Block shows it afterwards.
    QString ClientInUnit(const QString& block)
    {
        AtPanel().Type("Text2", block);
        AtPanel().Click("Command3");
        return AtPanel().Text("Text3");
    }

    void ExpectAtRest()
    {
        EXPECT_FALSE(AtPanel().IsShown("Label34"));
        EXPECT_FALSE(program->End().Ended());
    }
};

TEST_F(BlockCommandsTest, WhatIsTypedAndSetIsReadBackFromTheUnit)
{
    Start();
    AtPanel().Type("Text3", "rossi");
    AtPanel().Type("Text6", "12");
    AtPanel().Type("Text8", "4");

    AtPanel().Click("Command6");

    EXPECT_EQ(boxes.texts, QStringList{kBlocksWillBeLost});
    AtPanel().Type("Text3", "other");
    EXPECT_EQ(ClientInUnit("01"), "ROSSI   ");
    EXPECT_EQ(AtPanel().Text("Text6"), "012");
    EXPECT_EQ(AtPanel().Text("Text8"), "4");
    ExpectAtRest();
}

TEST_F(BlockCommandsTest, ReadAllBlocksFillsTheHeaderFile)
{
    Start({"--fill", "30:client=LAST,site=DIGA A"});

    AtPanel().Click("Command8");

    const std::string file = FileBytes(folder / "intestazione");
    EXPECT_EQ(file.size(), 2310U);
    EXPECT_EQ(file.substr(29U * 77, 16), "LAST    DIGA A  ");
    EXPECT_EQ(AtPanel().Text("Text2"), "01");
    EXPECT_TRUE(WaitFor([&] { return AtPanel().Text("Text17") == "1D090"; }));
    EXPECT_TRUE(boxes.texts.isEmpty());
    ExpectAtRest();
}

TEST_F(BlockCommandsTest, SetAllCarriesTheWholeHeaderFileToTheUnit)
{
    Start();
    AtPanel().Type("Text3", "first");

    AtPanel().Click("sscommand6");

    EXPECT_EQ(boxes.texts, QStringList{kBlockWillBeLost});
    EXPECT_EQ(AtPanel().Text("Text2"), "01");
    EXPECT_EQ(ClientInUnit("01"), "FIRST   ");
    EXPECT_EQ(ClientInUnit("03"), "CLIENT 3");
    ExpectAtRest();
}

TEST_F(BlockCommandsTest, ResetBlockAndTheNextCommandShareTheOpenPort)
{
    Start();
    AtPanel().Type("Text2", "03");

    AtPanel().Click("Command7");

    EXPECT_EQ(boxes.texts, QStringList{kBlockWillBeLost});
    ExpectAtRest();
    EXPECT_EQ(ClientInUnit("03"), "CLIENT 3");
    EXPECT_EQ(ClientInUnit("02").size(), 8);
}

TEST_F(BlockCommandsTest, TotalResetPutsFileAndUnitBackToTheirDefaults)
{
    Start();

    AtPanel().Click("ssCommand8");

    EXPECT_EQ(boxes.texts, QStringList{kBlockWillBeLost});
    EXPECT_EQ(ClientInUnit("01"), "CLIENT 1");
    EXPECT_EQ(ClientInUnit("03"), "CLIENT 3");
    ExpectAtRest();
}

TEST_F(BlockCommandsTest, ResetOfGainAndZeroAsksAndReportsASilentUnit)
{
    Start({"--fault", "silent@wake3+"});
    AtPanel().ShowTab(3);

    AtPanel().Click("Command13");

    EXPECT_EQ(boxes.texts,
              (QStringList{"ATTENTION: SET DEFAULT ZERO/GAIN, WOULD YOU LIKE TO CONTINUE ?",
                           "Attention: TAR--VEX not connected"}));
    EXPECT_EQ(program->State().currentBlock, 2);
    ExpectAtRest();
}

TEST_F(BlockCommandsTest, AStepFromBlockZeroEndsTheProgramWithItsReason)
{
    Start({"--fault", "silent@wake1+"});
    AtPanel().ShowTab(3);
    AtPanel().Click("Command13");
    AtPanel().ShowTab(1);

    AtPanel().Click("sscommand10");

    EXPECT_EQ(boxes.texts.constLast().toStdString(),
              "Run-time error: Bad record number 0, writing " + (folder / "intestazione").string());
    EXPECT_TRUE(program->End().Ended());
    EXPECT_EQ(program->End().Status(), 1);
}

} // namespace
} // namespace tarvex::tests
