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
        return FileBytes(state.HeaderFilePath).substr((recordNumber - 1) * 77, 77);
    }

    void Store(double recordNumber)
    {
        Click([&] {
            SkipOnError rule;
            headers.StorePanel(recordNumber);
        });
    }

    void Reload()
    {
        Click([&] {
            SkipOnError rule;
            headers.ReloadPanel();
        });
    }

    void FillBoxesWithLetters()
    {
        char letter = 'a';
        for (TextBox* box :
             {&panel.Text3, &panel.Text4, &panel.Text5, &panel.Text6, &panel.Text13, &panel.Text7,
              &panel.Text8, &panel.Text9, &panel.Text10, &panel.Text11, &panel.Text12,
              &panel.Text18, &panel.Text19, &panel.Text20, &panel.Text21, &panel.Text22}) {
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
    EXPECT_EQ(state.BlockHeader, StoredHeader(2));
    EXPECT_EQ(state.CurrentBlock, 1);
}

TEST_F(HeaderStoreTest, ReloadsEveryBoxTheHiddenOnesToo)
{
    FillBoxesWithLetters();
    const std::vector<std::string> before = HeaderBoxTexts();
    Store(2);
    Reload();
    EXPECT_EQ(panel.Text3.Text(), "CLIENT 1");
    state.CurrentBlock = 2;
    Reload();
    EXPECT_EQ(HeaderBoxTexts(), before);
    EXPECT_EQ(state.BlockHeader, StoredHeader(2));
}

TEST_F(HeaderStoreTest, ReloadsInTheOrderOfThePanel)
{
    std::string order;
    const auto watch = [&](TextBox& box, std::string name) {
        box.Watch([&order, name = std::move(name)] { order += name + " "; });
    };
    watch(panel.Text3, "3");
    watch(panel.Text4, "4");
    watch(panel.Text5, "5");
    watch(panel.Text6, "6");
    watch(panel.Text13, "13");
    watch(panel.Text7, "7");
    watch(panel.Text8, "8");
    watch(panel.Text9, "9");
    watch(panel.Text10, "10");
    watch(panel.Text11, "11");
    watch(panel.Text12, "12");
    watch(panel.Text18, "18");
    watch(panel.Text20, "20");
    watch(panel.Text19, "19");
    watch(panel.Text21, "21");
    watch(panel.Text22, "22");
    Reload();
    EXPECT_EQ(order, "3 4 5 6 13 7 8 9 10 11 12 18 20 19 21 22 ");
}

TEST_F(HeaderStoreTest, PadsAShortClientAndReloadsItsBlanks)
{
    panel.Text3.SetText("ENEL");
    Store(1);
    Reload();
    EXPECT_EQ(panel.Text3.Text(), "ENEL    ");
}

TEST_F(HeaderStoreTest, JoinsTheDepthWithoutPaddingItsPieces)
{
    panel.Text6.SetText("12");
    panel.Text13.SetText("5");
    Store(1);
    EXPECT_EQ(StoredHeader(1).profondità.View(), "125 ");
    Reload();
    EXPECT_EQ(panel.Text6.Text(), "125");
    EXPECT_EQ(panel.Text13.Text(), " ");
}

TEST_F(HeaderStoreTest, KeepsADepthWithoutDigitsAsItStands)
{
    panel.Text6.SetText("a-\xE0");
    panel.Text13.SetText("?");
    Store(1);
    Reload();
    EXPECT_EQ(panel.Text6.Text(), "a-\xE0");
    EXPECT_EQ(panel.Text13.Text(), "?");
}

TEST_F(HeaderStoreTest, PadsDateAndTimeWithTwoBlanksOnFile)
{
    panel.Text11.SetText("161126");
    panel.Text12.SetText("093015");
    Store(1);
    EXPECT_EQ(StoredHeader(1).data.View(), "161126  ");
    EXPECT_EQ(StoredHeader(1).ora.View(), "093015  ");
    Reload();
    EXPECT_EQ(panel.Text11.Text(), "161126");
    EXPECT_EQ(panel.Text12.Text(), "093015");
}

TEST_F(HeaderStoreTest, KeepsNulAndHighBytesBothWays)
{
    const std::string odd("\0\xE0\r\xFFx\0\0\0", 8);
    panel.Text3.SetText(odd);
    Store(1);
    Reload();
    EXPECT_EQ(panel.Text3.Text(), odd);
}

TEST_F(HeaderStoreTest, ReloadPastTheEndShowsBlanks)
{
    state.CurrentBlock = 31;
    Reload();
    EXPECT_THAT(HeaderBoxTexts(),
                ElementsAre("        ", "        ", "    ", "   ", " ", " ", " ", "    ", "  ",
                            "      ", "      ", "       ", "       ", "       ", "       ", " "));
    EXPECT_EQ(FileBytes(state.HeaderFilePath).size(), 2310U);
}

TEST_F(HeaderStoreTest, ReloadOfATruncatedLastRecordShowsTheBytesThatStandThere)
{
    WriteFile(state.HeaderFilePath, FileBytes(state.HeaderFilePath).substr(0, 29 * 77 + 40));
    state.CurrentBlock = 30;
    Reload();
    EXPECT_EQ(panel.Text3.Text(), "CLIENT30");
    EXPECT_EQ(panel.Text10.Text(), "00");
    EXPECT_EQ(panel.Text11.Text(), "DDMMYY");
    EXPECT_EQ(panel.Text12.Text(), "      ");
    EXPECT_EQ(panel.Text18.Text(), "       ");
    EXPECT_EQ(panel.Text22.Text(), " ");
}

TEST_F(HeaderStoreTest, ReloadOfABadRecordNumberShowsWhatTheWorkingHeaderHolds)
{
    for (const double number : {0.0, -1.0, 0.5}) {
        state.BlockHeader.cliente = "WORKING";
        panel.Text3.SetText("");
        state.CurrentBlock = number;
        Reload();
        EXPECT_EQ(panel.Text3.Text(), "WORKING ") << number;
    }
}

TEST_F(HeaderStoreTest, StoreAtABadRecordNumberStillFillsTheWorkingHeader)
{
    const std::string before = FileBytes(state.HeaderFilePath);
    panel.Text3.SetText("SKIPPED");
    Store(0);
    EXPECT_EQ(FileBytes(state.HeaderFilePath), before);
    EXPECT_EQ(state.BlockHeader.cliente.View(), "SKIPPED ");
}

TEST_F(HeaderStoreTest, StoreIntoAFileThatDoesNotOpenStillFillsTheWorkingHeader)
{
    state.HeaderFilePath = folder / "missing/intestazione";
    panel.Text3.SetText("SKIPPED");
    Store(1);
    EXPECT_EQ(state.BlockHeader.cliente.View(), "SKIPPED ");
    EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("intestazione"));
}

TEST_F(HeaderStoreTest, ReloadFromAFileThatDoesNotOpenShowsTheWorkingHeader)
{
    state.HeaderFilePath = folder.Path();
    state.BlockHeader.cliente = "WORKING";
    Reload();
    EXPECT_EQ(panel.Text3.Text(), "WORKING ");
}

TEST_F(HeaderStoreTest, OutsideTheRuleAFileThatDoesNotOpenEndsTheProgram)
{
    state.HeaderFilePath = folder.Path();
    panel.Text3.SetText("LOST");
    Click([&] { headers.StorePanel(1); });
    EXPECT_TRUE(unhandledFailure.has_value());
    EXPECT_TRUE(world.Ended());
    EXPECT_EQ(world.end.Status(), 1);
    EXPECT_EQ(state.BlockHeader, DefaultHeader(0));
    EXPECT_EQ(finishedHandlers, 0);
}

TEST_F(HeaderStoreTest, FillDefaultsWritesThirtyRecordsAndLeavesWhatLiesBehind)
{
    const std::string defaults = FileBytes(state.HeaderFilePath);
    WriteFile(state.HeaderFilePath, std::string(2320, 'x'));
    HeaderFile file(state);
    file.Open();
    headers.FillDefaults(file);
    file.Close();
    EXPECT_EQ(FileBytes(state.HeaderFilePath), defaults + std::string(10, 'x'));
    EXPECT_EQ(state.BlockHeader, DefaultHeader(29));
}

} // namespace
} // namespace tarvex::tests
