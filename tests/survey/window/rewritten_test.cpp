#include "survey/window/folder_watch.h"
#include "survey/window/window_test.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QLabel>
#include <QTabBar>
#include <QTest>
#include <QTreeWidget>

#include <fstream>

namespace tarvex::survey
{
namespace
{

using namespace std::chrono_literals;
namespace fs = std::filesystem;

/// Writes the bytes into the file that is there, as a second download does: it stays the same file.
void WriteAgain(const fs::path& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

void WriteMore(const fs::path& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary | std::ios::app) << bytes;
}

class RewrittenReport : public WindowTest
{
protected:
    RewrittenReport()
        : report_(tests::Download(dati_, "4:depth=20,nlet=07,client=NEW")),
          data_(tests::DataReportOf(report_)),
          spoilt_(tests::FileBytes(tests::DataReportOf(
              tests::Download(elsewhere_.Path(), "4:depth=20,spike=12.5,nlet=07,client=NEW"))))
    {
    }

    bool Becomes(const char* verdict)
    {
        return QTest::qWaitFor([&] { return Verdict() == verdict; }, 60'000);
    }

    const fs::path dati_ = folder_.Path();
    const tests::TemporaryFolder elsewhere_;
    const fs::path report_;
    const fs::path data_;
    const std::string spoilt_;
};

TEST_F(RewrittenReport, IsReadAgain)
{
    window_.Open({report_});
    ASSERT_EQ(Verdict(), "Verdict: good");
    const auto good = tests::FileBytes(data_);
    WriteAgain(data_, spoilt_);
    EXPECT_TRUE(Becomes("Verdict: read again at 12.5 m (A)"));
    WriteAgain(data_, good);
    EXPECT_TRUE(Becomes("Verdict: good")) << "and a second time";
}

TEST_F(RewrittenReport, IsReadAgainWhenAnotherFileTakesItsName)
{
    window_.Open({report_});
    const auto good = tests::FileBytes(data_);
    WriteAgain(elsewhere_ / "part", spoilt_);
    fs::rename(elsewhere_ / "part", data_);
    EXPECT_TRUE(Becomes("Verdict: read again at 12.5 m (A)"));
    WriteAgain(data_, good);
    EXPECT_TRUE(Becomes("Verdict: good")) << "the file that took the name is watched";
}

TEST_F(RewrittenReport, IsShownWholeAfterItWasSeenUnfinished)
{
    window_.Open({report_});
    const auto half = spoilt_.size() / 2;
    WriteAgain(data_, spoilt_.substr(0, half));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Verdict() != "Verdict: good"; }, 60'000));
    WriteMore(data_, spoilt_.substr(half));
    EXPECT_TRUE(Becomes("Verdict: read again at 12.5 m (A)"));
}

TEST_F(RewrittenReport, IsReadAgainWhereItsFolderHasNoName)
{
    const auto nameless = folder_ / "Gef\xE4lle"; // no UTF-8
    fs::create_directory(nameless);
    const auto report = tests::Download(nameless, "4:depth=20,nlet=07,client=NEW");
    window_.Open({report});
    ASSERT_EQ(Verdict(), "Verdict: good");
    WriteAgain(tests::DataReportOf(report), spoilt_);
    EXPECT_TRUE(Becomes("Verdict: read again at 12.5 m (A)"));
}

TEST_F(RewrittenReport, IsReadAgainAsTheBase)
{
    window_.Open({folder_.Path()});
    window_.Open({folder_ / "COMUNE  -PENDIO 1-T1  -02-dat.dat"});
    Find<QTabBar>("kinds").setCurrentIndex(3);
    const auto change = [&] { return Plot().Page().a.curves.at(0).points.front().value; };
    const double before = change();
    WriteAgain(
        tests::DataReportOf(folder_ / "COMUNE  -PENDIO 1-T1  -00-dat.dat"),
        tests::FileBytes(tests::DataReportOf(folder_ / "COMUNE  -PENDIO 1-T1  -01-dat.dat")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return change() < before - 50; }, 60'000));
}

TEST(FolderWatch, WaitsUntilAFileIsNoLongerBeingWritten)
{
    const tests::TemporaryFolder folder;
    const auto file = folder / "report";
    WriteAgain(file, "a");
    int calls = 0;
    FolderWatch watch([&] { ++calls; }, 3s);
    watch.Follow({folder.Path()});
    watch.FollowFiles({file});
    for (int part = 0; part < 20; ++part) {
        WriteMore(file, "more");
        QTest::qWait(20);
    }
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return calls > 0; }, 60'000));
    QTest::qWait(10);
    EXPECT_EQ(calls, 1);
}

TEST(FolderWatch, DoesNotWaitForAFileThatIsWrittenForGood)
{
    const tests::TemporaryFolder folder;
    const auto file = folder / "report";
    WriteAgain(file, "a");
    int calls = 0;
    FolderWatch watch([&] { ++calls; }, 200ms);
    watch.Follow({folder.Path()});
    watch.FollowFiles({file});
    const auto writeAndLook = [&] {
        WriteMore(file, "more");
        return calls > 0;
    };
    EXPECT_TRUE(QTest::qWaitFor(writeAndLook, 60'000));
}

TEST(FolderWatch, NoLongerFollowsAFileThatIsNotNamedAgain)
{
    const tests::TemporaryFolder folder;
    WriteAgain(folder / "one", "a");
    WriteAgain(folder / "other", "a");
    int calls = 0;
    FolderWatch watch([&] { ++calls; }, 1ms);
    watch.FollowFiles({folder / "one"});
    watch.FollowFiles({folder / "other"});
    WriteMore(folder / "one", "more");
    QTest::qWait(200);
    EXPECT_EQ(calls, 0);
    WriteMore(folder / "other", "more");
    EXPECT_TRUE(QTest::qWaitFor([&] { return calls > 0; }, 60'000));
}

TEST_F(WindowTest, SaysInPlaceOfTheVerdictWhyTheChosenSurveyIsNotShown)
{
    const std::string name = "A-EMPTY -PENDIO 1-T1  -01-dat.dat";
    WriteAgain(folder_ / name, "");
    window_.Open({folder_.Path()});
    auto& tree = Find<QTreeWidget>("tree");
    tree.setCurrentItem(tree.topLevelItem(0)->child(0)->child(0)->child(0));
    EXPECT_THAT(Verdict(), ::testing::EndsWith(name + " is no report: it is empty"));
    tree.setCurrentItem(tree.topLevelItem(1)->child(0)->child(0)->child(0));
    EXPECT_EQ(Verdict(), "Verdict: good");
    tree.clearSelection();
    EXPECT_EQ(Verdict(), "No survey is chosen");
}

} // namespace
} // namespace tarvex::survey
