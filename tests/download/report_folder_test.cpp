#include "download_test_fixture.h"

#include "download/report_names.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

struct NameRow {
    std::string name;
    std::vector<std::string> fields; ///< client, site, tube, readout
};

std::vector<std::string> HeaderNamed(const std::vector<std::string>& fields)
{
    std::vector<std::string> header = SmallSurveyHeader();
    header[0] = fields[0];
    header[1] = fields[1];
    header[2] = fields[2];
    header[7] = fields[3];
    return header;
}

class RefusedNameTest : public DownloadTest, public ::testing::WithParamInterface<NameRow>
{
protected:
    /// Everything below the test's folder.
    std::vector<std::string> Everything() const
    {
        std::vector<std::string> all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path()))
            all.push_back(entry.path().lexically_relative(folder.Path()).generic_string());
        std::sort(all.begin(), all.end());
        return all;
    }
};

TEST_P(RefusedNameTest, CostsBothReportsButNeitherTheWalkNorAnyFileOutside)
{
    SetSmallSurvey(unit, 0);
    unit.SetHeader(0, HeaderNamed(GetParam().fields));
    Download();
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(SmallSurveyRows()));
    EXPECT_THAT(Everything(), ElementsAre("intestazione", "reports", "reports/datiram.dat"));
    EXPECT_EQ(unit.reads, 13);
    EXPECT_EQ(finishedHandlers, 1);
    EXPECT_EQ(boxes.shown, 0);
    EXPECT_LINK_AT_REST();
}

INSTANTIATE_TEST_SUITE_P(
    Table, RefusedNameTest,
    ::testing::Values(
        NameRow{"FolderAbove", {"../abcde", "SITE0000", "T12 ", "03"}},
        NameRow{"RootFolder", {"/tmp/abc", "SITE0000", "T12 ", "03"}},
        NameRow{"SeparatorInSite", {"CLIENT0 ", "A/B     ", "T12 ", "03"}},
        NameRow{"SeparatorInTube", {"CLIENT0 ", "SITE0000", "/../", "03"}},
        NameRow{"SeparatorInReadout", {"CLIENT0 ", "SITE0000", "T12 ", "0/"}},
        NameRow{"NulInClient", {std::string("AB\0     ", 8), "SITE0000", "T12 ", "03"}},
        NameRow{"NulInReadout", {"CLIENT0 ", "SITE0000", "T12 ", std::string("0\0", 2)}},
        NameRow{"NeverWritten", {"", "", "", ""}}),
    RowName());

TEST_F(DownloadTest, ANameThatLeadsOutsideDeletesNothingThere)
{
    const std::string victim = "victi-SITE0000-T12 -03-";
    WriteFile(folder / (victim + "dat.dat"), "precious");
    WriteFile(folder / (victim + "num.dat"), "precious");
    SetSmallSurvey(unit, 0);
    unit.pages["00000"] = "../victi";
    Download();
    EXPECT_EQ(FileBytes(folder / (victim + "dat.dat")), "precious");
    EXPECT_EQ(FileBytes(folder / (victim + "num.dat")), "precious");
}

TEST_F(DownloadTest, ANameCutShortByANulDeletesNoOtherFile)
{
    WriteFile(state.reportFolder / "AB", "precious");
    SetSmallSurvey(unit, 0);
    unit.pages["00000"] = std::string("AB\0     ", 8);
    Download();
    EXPECT_EQ(Report("AB"), "precious");
}

class AcceptedNameTest : public DownloadTest, public ::testing::WithParamInterface<NameRow>
{
};

TEST_P(AcceptedNameTest, IsTakenLiterally)
{
    SetSmallSurvey(unit, 0);
    WriteFile(state.reportFolder / "other-dat.dat", "kept");
    const auto& fields = GetParam().fields;
    unit.SetHeader(0, HeaderNamed(fields));
    Download();
    Download();
    const std::string begin = fields[0] + "-" + fields[1] + "-" + fields[2] + "-" + fields[3] + "-";
    EXPECT_EQ(Report(begin + "dat.dat").size(), 798U);
    EXPECT_EQ(Report(begin + "num.dat"), DataReportOf(SmallSurveyRows()));
    EXPECT_EQ(Report("other-dat.dat"), "kept");
    EXPECT_EQ(Reports().size(), 4U);
}

INSTANTIATE_TEST_SUITE_P(
    Table, AcceptedNameTest,
    ::testing::Values(NameRow{"AllBlanks", {"        ", "        ", "    ", "  "}},
                      NameRow{"TwoDots", {"..      ", "..      ", "..  ", ".."}}),
    RowName());

// Letters that Windows has in no name, or that make it another file's or a device's there.
#ifdef _WIN32
INSTANTIATE_TEST_SUITE_P(
    RefusedByWindows, RefusedNameTest,
    ::testing::Values(NameRow{"BackwardSeparator", {"..\\abcde", "SITE0000", "T12 ", "03"}},
                      NameRow{"Drive", {"C:\\abcde", "SITE0000", "T12 ", "03"}},
                      NameRow{"PartOfAFile", {"CLIENT0:", "SITE0000", "T12 ", "03"}},
                      NameRow{"Device", {"NUL .   ", "SITE0000", "T12 ", "03"}},
                      NameRow{"Port", {"com1.   ", "SITE0000", "T12 ", "03"}},
                      NameRow{"Wildcards", {"*       ", "????????", "*?  ", "**"}},
                      NameRow{"Controls", {"A\rB\nC\tD ", "\x01\x7F      ", "\x1B   ", "  "}},
                      NameRow{"Quotes", {"A'\"`;$ &", "<>|     ", "~#  ", "!!"}}),
    RowName());
#else
INSTANTIATE_TEST_SUITE_P(
    AlsoElsewhere, AcceptedNameTest,
    ::testing::Values(NameRow{"Device", {"NUL .   ", "SITE0000", "T12 ", "03"}},
                      NameRow{"Wildcards", {"*       ", "????????", "*?  ", "**"}},
                      NameRow{"Controls", {"A\rB\nC\tD ", "\x01\x7F      ", "\x1B   ", "  "}},
                      NameRow{"Quotes", {"A'\"`;$ &", "<>|:    ", "~#  ", "!!"}}),
    RowName());
#endif

TEST_F(DownloadTest, BytesAbove127BecomeUnicodeInTheNamesAndStayBytesInTheReport)
{
    SetSmallSurvey(unit, 0);
    unit.SetHeader(0, HeaderNamed({"CITT\xC0   ", "\x80 \x93L\xECri ", "n\xB0 1", "\x9F "}));
    Download();
    const std::u8string begin = u8"CITTÀ   -€ “Lìri -n° 1-Ÿ -";
    EXPECT_EQ(Report(begin + u8"dat.dat").substr(0, 42),
              Padded("Client: ;CITT\xC0   ", 40) + "\r ");
    EXPECT_EQ(Report(begin + u8"num.dat"), DataReportOf(SmallSurveyRows()));
    EXPECT_EQ(state.reportFileName, state.reportFolder.string() + kSeparator +
                                        "CITT\xC0   -\x80 \x93L\xECri -n\xB0 1-\x9F -num.dat");
}

TEST_F(DownloadTest, AFolderInPlaceOfAReportCostsThatReportOnly)
{
    SetSmallSurvey(unit, 0);
    std::filesystem::create_directory(state.reportFolder / (kSmallSurvey + "dat.dat"));
    Download();
    EXPECT_TRUE(std::filesystem::is_directory(state.reportFolder / (kSmallSurvey + "dat.dat")));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf(SmallSurveyRows()));
}

TEST_F(DownloadTest, AnotherFolderChosenInTheHeaderTakesAllFiles)
{
    SetSmallSurvey(unit, 0);
    unit.onWake = [&](int wake) {
        if (wake == 10) ChooseFolder("later");
    };
    Download();
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(SmallSurveyRows()));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf(SmallSurveyRows()));
    EXPECT_TRUE(NamesIn(folder / "reports").empty());
}

TEST_F(DownloadTest, AnotherFolderChosenInTheWalkTakesADataReportOfItsOwnEmptyWorkFile)
{
    SetSmallSurvey(unit, 0);
    unit.onWake = [&](int wake) {
        if (wake == 12) ChooseFolder("later");
    };
    Download();
    EXPECT_EQ(FileBytes(folder / "reports/datiram.dat"), WorkFileOf(SmallSurveyRows()));
    EXPECT_THAT(NamesIn(folder / "reports"), ElementsAre(kSmallSurvey + "dat.dat", "datiram.dat"));
    EXPECT_EQ(Report("datiram.dat"), "");
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), BlankDataRecord() + BlankDataRecord());
    EXPECT_EQ(state.reportFileName, (folder / "later" / (kSmallSurvey + "num.dat")).string());
}

/// Runs in a current directory of its own.
class CurrentDirectoryTest : public DownloadTest
{
protected:
    CurrentDirectoryTest()
    {
        std::filesystem::create_directory(folder / "current");
        std::filesystem::current_path(folder / "current");
        SetSmallSurvey(unit, 0);
    }
    ~CurrentDirectoryTest() override { std::filesystem::current_path(start_); }

private:
    std::filesystem::path start_ = std::filesystem::current_path();
};

TEST_F(CurrentDirectoryTest, LosesItsWorkFileAfterTheHeadReport)
{
    WriteFile("datiram.dat", "left there");
    WriteFile("datiram.dat2", "kept");
    bool thereAtTheHeadReport = false;
    panel.reportFile.Watch([&] {
        if (panel.reportFile.Text().ends_with("dat.dat"))
            thereAtTheHeadReport = std::filesystem::exists("datiram.dat");
    });
    Download();
    EXPECT_TRUE(thereAtTheHeadReport);
    EXPECT_THAT(NamesIn("."), ElementsAre("datiram.dat2"));
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(SmallSurveyRows()));
}

TEST_F(CurrentDirectoryTest, KeepsItsWorkFileWhenTheUnitIsSilent)
{
    WriteFile("datiram.dat", "left there");
    unit.answerWake = [](int) { return ""; };
    boxes.Expect("Attention: TAR--VEX not connected");
    Download();
    EXPECT_EQ(FileBytes("datiram.dat"), "left there");
}

TEST_F(CurrentDirectoryTest, MayBeTheReportFolder)
{
    state.reportFolder = folder / "current";
    Download();
    Download();
    EXPECT_EQ(Report("datiram.dat"), WorkFileOf(SmallSurveyRows()));
    EXPECT_EQ(Report(kSmallSurvey + "num.dat"), DataReportOf(SmallSurveyRows()));
}

TEST(ReportNames, JoinFolderSeparatorAndName)
{
    HeaderTexts header;
    header[Client] = "C ";
    header[Site] = "S";
    header[Tube] = "T";
    header[Readout] = "01";
    EXPECT_EQ(HeadReportFile("/srv/dati", header).Path(), "/srv/dati/C -S-T-01-dat.dat");
    EXPECT_EQ(DataReportFile("/srv/dati", header).Path(), "/srv/dati/C -S-T-01-num.dat");
    EXPECT_EQ(WorkFile("/srv/dati").Path(), "/srv/dati/datiram.dat");
    EXPECT_EQ(HeadReportFile("/srv/dati", header).Shown(),
              "/srv/dati" + kSeparator + "C -S-T-01-dat.dat");
    EXPECT_EQ(HeadReportFile(std::filesystem::path(u8"/città"), header).Shown(),
              "/citt\xE0" + kSeparator + "C -S-T-01-dat.dat");
}

TEST(ReportNames, WithASeparatorOrANulHaveNoPath)
{
    for (const std::string& name : {std::string("a/b"), std::string("/"), std::string("a\0b", 3)}) {
        const ReportFile file{"/dati", name};
        EXPECT_THROW((void)file.Path(), RunTimeFailure);
        EXPECT_EQ(file.Shown(), "/dati" + kSeparator + name);
    }
}

} // namespace
} // namespace tarvex::tests
