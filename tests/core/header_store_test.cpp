#include "core/header_store.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

class HeaderStoreTest : public LogicTest
{
protected:
    /// The bytes of one record of the header file.
    std::string StoredBytes(std::size_t recordNumber) const
    {
        return FileBytes(state.headerFilePath).substr((recordNumber - 1) * 77, 77);
    }

    void Store(double recordNumber)
    {
        Click([&] {
            SkipOnError rule;
            StorePanel(panel, state, recordNumber);
        });
    }

    void Reload()
    {
        Click([&] {
            SkipOnError rule;
            ReloadPanel(panel, state);
        });
    }

    void FillBoxesWithLetters()
    {
        char letter = 'a';
        for (TextBox* box :
             {&panel.header[Client], &panel.header[Site], &panel.header[Tube],
              &panel.header[DepthMetres], &panel.header[DepthTenths], &panel.header[Step],
              &panel.header[Guides], &panel.header[North], &panel.header[Readout],
              &panel.header[Date], &panel.header[Time], &panel.calibration[Gain1],
              &panel.calibration[Gain2], &panel.calibration[Zero1], &panel.calibration[Zero2],
              &panel.calibration[Point]}) {
            box->SetText(std::string(9, letter++));
        }
    }
};

const std::string kLettersOnFile = "aaaaaaaabbbbbbbbccccdddefghhhhii"
                                   "jjjjjj  kkkkkk  plllllllmmmmmmmnnnnnnnooooooo";

TEST_F(HeaderStoreTest, StoresEveryBoxAtItsPlaceOfTheRecord)
{
    FillBoxesWithLetters();
    Store(2);
    EXPECT_EQ(StoredBytes(2), kLettersOnFile);
    EXPECT_EQ(StoredHeader(1), DefaultHeader(0));
    EXPECT_EQ(StoredHeader(3), DefaultHeader(2));
    EXPECT_EQ(state.blockHeader, StoredHeader(2));
    EXPECT_EQ(state.currentBlock, 1);
}

TEST_F(HeaderStoreTest, ReloadsEveryBoxTheHiddenOnesToo)
{
    FillBoxesWithLetters();
    const std::vector<std::string> before = HeaderBoxTexts();
    Store(2);
    Reload();
    EXPECT_EQ(panel.header[Client].Text(), "CLIENT 1");
    state.currentBlock = 2;
    Reload();
    EXPECT_EQ(HeaderBoxTexts(), before);
    EXPECT_EQ(state.blockHeader, StoredHeader(2));
}

TEST_F(HeaderStoreTest, ReloadsInTheOrderOfThePanel)
{
    std::string order;
    const auto watch = [&](TextBox& box, std::string name) {
        box.Watch([&order, name = std::move(name)] { order += name + " "; });
    };
    for (const auto& row : kHeaderBoxes)
        watch(panel.header[row.box], std::string(row.control.substr(4)));
    for (const auto& row : kCalibrationBoxes)
        watch(panel.calibration[row.box], std::string(row.control.substr(4)));
    Reload();
    EXPECT_EQ(order, "3 4 5 6 13 7 8 9 10 11 12 18 20 19 21 22 ");
}

TEST_F(HeaderStoreTest, PadsAShortClientAndReloadsItsBlanks)
{
    panel.header[Client].SetText("ENEL");
    Store(1);
    Reload();
    EXPECT_EQ(panel.header[Client].Text(), "ENEL    ");
}

TEST_F(HeaderStoreTest, JoinsTheDepthWithoutPaddingItsPieces)
{
    panel.header[DepthMetres].SetText("12");
    panel.header[DepthTenths].SetText("5");
    Store(1);
    EXPECT_EQ(StoredHeader(1).profondità.View(), "125 ");
    Reload();
    EXPECT_EQ(panel.header[DepthMetres].Text(), "125");
    EXPECT_EQ(panel.header[DepthTenths].Text(), " ");
}

TEST_F(HeaderStoreTest, KeepsADepthWithoutDigitsAsItIs)
{
    panel.header[DepthMetres].SetText("a-\xE0");
    panel.header[DepthTenths].SetText("?");
    Store(1);
    Reload();
    EXPECT_EQ(panel.header[DepthMetres].Text(), "a-\xE0");
    EXPECT_EQ(panel.header[DepthTenths].Text(), "?");
}

TEST_F(HeaderStoreTest, PadsDateAndTimeWithTwoBlanksOnFile)
{
    panel.header[Date].SetText("161126");
    panel.header[Time].SetText("093015");
    Store(1);
    EXPECT_EQ(StoredHeader(1).data.View(), "161126  ");
    EXPECT_EQ(StoredHeader(1).ora.View(), "093015  ");
    Reload();
    EXPECT_EQ(panel.header[Date].Text(), "161126");
    EXPECT_EQ(panel.header[Time].Text(), "093015");
}

TEST_F(HeaderStoreTest, KeepsNulAndHighBytesBothWays)
{
    const std::string odd("\0\xE0\r\xFFx\0\0\0", 8);
    panel.header[Client].SetText(odd);
    Store(1);
    Reload();
    EXPECT_EQ(panel.header[Client].Text(), odd);
}

TEST_F(HeaderStoreTest, ReloadPastTheEndShowsBlanks)
{
    state.currentBlock = 31;
    Reload();
    EXPECT_THAT(HeaderBoxTexts(),
                ElementsAre("        ", "        ", "    ", "   ", " ", " ", " ", "    ", "  ",
                            "      ", "      ", "       ", "       ", "       ", "       ", " "));
    EXPECT_EQ(FileBytes(state.headerFilePath).size(), 2310U);
}

TEST_F(HeaderStoreTest, ReloadOfATruncatedLastRecordShowsTheBytesThatAreThere)
{
    WriteFile(state.headerFilePath, FileBytes(state.headerFilePath).substr(0, 29 * 77 + 40));
    state.currentBlock = 30;
    Reload();
    EXPECT_EQ(panel.header[Client].Text(), "CLIENT30");
    EXPECT_EQ(panel.header[Readout].Text(), "00");
    EXPECT_EQ(panel.header[Date].Text(), "DDMMYY");
    EXPECT_EQ(panel.header[Time].Text(), "      ");
    EXPECT_EQ(panel.calibration[Gain1].Text(), "       ");
    EXPECT_EQ(panel.calibration[Point].Text(), " ");
}

TEST_F(HeaderStoreTest, ReloadOfABadRecordNumberShowsWhatTheWorkingHeaderHolds)
{
    for (const double number : {0.0, -1.0, 0.5}) {
        state.blockHeader.cliente = "WORKING";
        panel.header[Client].SetText("");
        state.currentBlock = number;
        Reload();
        EXPECT_EQ(panel.header[Client].Text(), "WORKING ") << number;
    }
}

TEST_F(HeaderStoreTest, StoreAtABadRecordNumberStillFillsTheWorkingHeader)
{
    const std::string before = FileBytes(state.headerFilePath);
    panel.header[Client].SetText("SKIPPED");
    Store(0);
    EXPECT_EQ(FileBytes(state.headerFilePath), before);
    EXPECT_EQ(state.blockHeader.cliente.View(), "SKIPPED ");
}

TEST_F(HeaderStoreTest, StoreIntoAFileThatDoesNotOpenStillFillsTheWorkingHeader)
{
    state.headerFilePath = folder / "missing/intestazione";
    panel.header[Client].SetText("SKIPPED");
    Store(1);
    EXPECT_EQ(state.blockHeader.cliente.View(), "SKIPPED ");
    EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("intestazione"));
}

TEST_F(HeaderStoreTest, ReloadFromAFileThatDoesNotOpenShowsTheWorkingHeader)
{
    state.headerFilePath = folder.Path();
    state.blockHeader.cliente = "WORKING";
    Reload();
    EXPECT_EQ(panel.header[Client].Text(), "WORKING ");
}

TEST_F(HeaderStoreTest, OutsideTheRuleAFileThatDoesNotOpenEndsTheProgram)
{
    state.headerFilePath = folder.Path();
    panel.header[Client].SetText("LOST");
    Click([&] { StorePanel(panel, state, 1); });
    EXPECT_TRUE(unhandledFailure.has_value());
    EXPECT_TRUE(world.Ended());
    EXPECT_EQ(world.end.Status(), 1);
    EXPECT_EQ(state.blockHeader, DefaultHeader(0));
    EXPECT_EQ(finishedHandlers, 0);
}

TEST_F(HeaderStoreTest, FillDefaultsWritesThirtyRecordsAndLeavesWhatFollows)
{
    const std::string defaults = FileBytes(state.headerFilePath);
    WriteFile(state.headerFilePath, std::string(2320, 'x'));
    HeaderFile file(state);
    file.Open();
    FillDefaults(state, file);
    file.Close();
    EXPECT_EQ(FileBytes(state.headerFilePath), defaults + std::string(10, 'x'));
    EXPECT_EQ(state.blockHeader, DefaultHeader(29));
}

} // namespace
} // namespace tarvex::tests
