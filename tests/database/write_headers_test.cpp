#include "database/write_headers_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

TEST_F(WriteHeadersTest, AMarkedRowBecomesTheHeaderOfItsNextReading)
{
    AddRow(DamRow("5"));
    state.currentBlock = 7;
    Write();
    EXPECT_THAT(WrittenRecords(), ElementsAre(5));
    EXPECT_EQ(StoredHeader(5), WrittenHeader());
    EXPECT_THAT(Rows(), ElementsAre(DamRow("")));
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, TheTargetRecordItselfIsNotRead)
{
    BlockHeader target = DamHeader("11", "311299  ", "235959  ");
    target.gain1 = "+2.0000";
    PutHeader(5, target);
    AddRow(DamRow("5"));
    Write();
    EXPECT_EQ(StoredHeader(5), WrittenHeader());
}

TEST_F(WriteHeadersTest, BlockOneIsOnThePanelAtOnce)
{
    AddRow(DamRow("1"));
    Write();
    EXPECT_EQ(panel.header[Client].Text(), "ROSSI   ");
    EXPECT_EQ(panel.header[Readout].Text(), "02");
    EXPECT_EQ(panel.calibration[Gain1].Text(), "GAIN1..");
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, WithoutAMarkNothingIsWrittenAndEveryNullMarkBecomesEmpty)
{
    AddRow(DamRowWith("b", {}));
    AddRow(DamRow(""));
    AddRow(DamRowWith("b", {}));
    Write();
    EXPECT_THAT(WrittenRecords(), ElementsAre());
    EXPECT_THAT(Rows(), ElementsAre(DamRow(""), DamRow(""), DamRow("")));
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, ARefusedBlockTakesNothingFromItsRow)
{
    AddRow(DamRow("30"));
    boxes.Expect(kBadBlock, [&] { EXPECT_EQ(state.blockHeader, working); });
    Write();
}

TEST_F(WriteHeadersTest, TheSecondOfThreeStopsTheWalk)
{
    AddRow(DamRow("5"));
    SurveyRow second = DamRow("6");
    second["cliente"] = "second";
    second["profondità"] = "0900";
    second["passo"] = "0";
    second["guide"] = "2";
    second["nord"] = "x015";
    second.erase("l0");
    AddRow(second);
    AddRow(DamRow("7"));
    AddRow(DamRowWith("b", {}));
    boxes.Expect(kBadNorth, [&] {
        BlockHeader held = WrittenHeader();
        held.cliente = "SECOND";
        held.profondità = "0900";
        held.passo = "0";
        held.guide = "2";
        EXPECT_EQ(state.blockHeader, held);
        EXPECT_EQ(panel.header[Client].Text(), "CLIENT 1");
    });
    Write();
    EXPECT_THAT(WrittenRecords(), ElementsAre(5));
    EXPECT_EQ(StoredHeader(5), WrittenHeader());
    EXPECT_THAT(Marks(), ElementsAre("", "6", "7", Value()));
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, OfTwoRowsForOneBlockTheLaterStays)
{
    AddRow(DamRow("5"));
    SurveyRow later = DamRow("5");
    later["cliente"] = "LATER";
    AddRow(later);
    Write();
    EXPECT_EQ(StoredHeader(5).cliente.Text(), "LATER   ");
    EXPECT_THAT(Marks(), ElementsAre("", ""));
}

TEST_F(WriteHeadersTest, ATableOfNoRowsGivesNoBox)
{
    Write();
    EXPECT_THAT(engine.calls, ElementsAre("OpenTable", "MoveFirst", "Eof", "Close"));
    EXPECT_THAT(WrittenRecords(), ElementsAre());
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, ACommandThatRanInTheFirstEventsLeavesItsOwnHandleAlone)
{
    AddRow(DamRow("5"));
    world.At(0, [&] { Read(); });
    Write();
    EXPECT_EQ(gridsShown, 1);
    EXPECT_EQ(StoredHeader(5).cliente.Text(), "ROSSI   ");
    EXPECT_THAT(Rows().size(), 31U);
    EXPECT_EQ(RowAt(0), DamRow(""));
}

TEST_F(WriteHeadersTest, ThePanelShowsBlockOneWhenTheLastEventsRun)
{
    state.currentBlock = 9;
    panel.blockNumber.SetText("09");
    std::string shown;
    world.At(0, [&] { world.At(0, [&] { shown = panel.blockNumber.Text(); }); });
    Write();
    EXPECT_EQ(shown, "01");
}

TEST_F(WriteHeadersTest, TheEndOfTheProgramCutsItOff)
{
    AddRow(DamRow("5"));
    world.EndProgramAt(0);
    Write();
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_TRUE(engine.calls.empty());
    EXPECT_THAT(Marks(), ElementsAre("5"));
}

TEST_F(WriteHeadersTest, OneRowIsOneListOfSteps)
{
    AddRow(DamRow("5"));
    Write();
    EXPECT_THAT(engine.calls,
                ElementsAre("OpenTable", "MoveFirst", "Eof", "Fields b", "Fields b",
                            "Fields cliente", "Fields cantiere", "Fields tubo", "Fields profondità",
                            "Fields profondità", "Fields passo", "Fields profondità",
                            "Fields passo", "Fields passo", "Fields guide", "Fields guide",
                            "Fields nord", "Fields nord", "Fields nord", "Fields nord", "Fields l0",
                            "Fields l1", "Fields l2", "Edit", "SetField b", "Update", "MoveNext",
                            "Eof", "Close"));
}

TEST_F(WriteHeadersTest, WhatReadHeadersFiledGoesBackForTheNextReading)
{
    PutHeader(3, DamHeader("00", "160926  ", "093015  "));
    Read();
    const auto table = backend->OpenTable(survey.databasePath);
    table->MoveNext();
    table->MoveNext();
    table->Edit();
    table->SetField("b", "9");
    table->Update();
    table->Close();
    Write();
    EXPECT_EQ(StoredHeader(9).cliente.Text(), "ROSSI   ");
    EXPECT_EQ(StoredHeader(9).nlet.Text(), "01");
    // Date, time and calibration are those of record 30, where the reading had ended.
    EXPECT_EQ(StoredHeader(9).data, DefaultHeader(29).data);
}

} // namespace
} // namespace tarvex::tests
