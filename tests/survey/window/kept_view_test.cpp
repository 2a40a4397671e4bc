#include "survey/window/window_test.h"

#include <QComboBox>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>

#include <fstream>

namespace tarvex::survey
{
namespace
{

namespace fs = std::filesystem;

/// The operator looks at something while the manager downloads into the folder.
class KeptView : public WindowTest
{
protected:
    KeptView()
    {
        window_.Open({report_});
        window_.resize(800, 600);
        window_.show();
        QTest::qWait(50);
    }

    QTreeWidget& Tree() { return Find<QTreeWidget>("tree"); }

    /// Downloads another survey, and waits until the window lists it.
    void DownloadAnother()
    {
        const int before = Tree().topLevelItemCount();
        tests::Download(folder_.Path(), "2:depth=20,client=OTHER");
        ASSERT_TRUE(QTest::qWaitFor([&] { return Tree().topLevelItemCount() > before; }, 60'000));
        QTest::qWait(50);
    }

    QCPRange Depths() { return Plot().axisRect(0)->axis(QCPAxis::atLeft)->range(); }
    QCPRange Values() { return Plot().axisRect(1)->axis(QCPAxis::atBottom)->range(); }

    const tests::TemporaryFolder elsewhere_;
    const fs::path report_ = folder_ / "COMUNE  -PENDIO 1-T1  -02-dat.dat";
};

TEST_F(KeptView, OfThePlotsIsThatOfBefore)
{
    for (const auto key : {Qt::Key_Plus, Qt::Key_Plus, Qt::Key_PageDown, Qt::Key_Left})
        QTest::keyClick(&Plot(), key);
    const auto depths = Depths();
    const auto values = Values();
    DownloadAnother();
    EXPECT_EQ(Depths(), depths);
    EXPECT_EQ(Values(), values);
    QTest::keyClick(&Plot(), Qt::Key_Home);
    EXPECT_GT(Depths().size(), depths.size()) << "all is in view again";
}

TEST_F(KeptView, OfThePlotsStaysWhenTheSurveyItselfIsDownloadedAgain)
{
    QTest::keyClick(&Plot(), Qt::Key_Plus);
    const auto depths = Depths();
    const auto data = tests::DataReportOf(report_);
    const auto spoilt = tests::FileBytes(tests::DataReportOf(
        tests::Download(elsewhere_.Path(), "1:depth=20,moved=2,nlet=02,spike=12.5")));
    std::ofstream(data, std::ios::binary | std::ios::trunc) << spoilt;
    ASSERT_TRUE(QTest::qWaitFor([&] { return Verdict() != "Verdict: good"; }, 60'000));
    EXPECT_EQ(Depths(), depths);
}

TEST_F(KeptView, OfThePlotsIsAllOfThemForAnotherSurvey)
{
    const auto whole = Depths();
    QTest::keyClick(&Plot(), Qt::Key_Plus);
    window_.Open({folder_ / "COMUNE  -PENDIO 1-T1  -00-dat.dat"});
    EXPECT_EQ(Depths(), whole);
}

TEST_F(KeptView, OfPlotsThatShowAllFollowsADeeperTube)
{
    const auto whole = Depths();
    for (const auto& path : {report_, tests::DataReportOf(report_)}) {
        const auto deeper = tests::Download(elsewhere_.Path(), "1:depth=40,moved=2,nlet=02");
        const auto from = path == report_ ? deeper : tests::DataReportOf(deeper);
        std::ofstream(path, std::ios::binary | std::ios::trunc) << tests::FileBytes(from);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return Depths().upper > 1.5 * whole.upper; }, 60'000));
}

TEST_F(KeptView, OfTheTableIsThatOfBefore)
{
    auto& table = Find<QTableView>("table");
    table.selectRow(30);
    table.verticalScrollBar()->setValue(25);
    ASSERT_EQ(table.verticalScrollBar()->value(), 25);
    DownloadAnother();
    EXPECT_EQ(table.currentIndex().row(), 30);
    EXPECT_EQ(table.verticalScrollBar()->value(), 25);
}

TEST_F(KeptView, OfTheTreeKeepsWhatWasClosed)
{
    DownloadAnother();
    Tree().topLevelItem(1)->child(0)->setExpanded(false);
    const auto clients = Tree().topLevelItemCount();
    tests::Download(folder_.Path(), "2:depth=20,client=ZULU");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Tree().topLevelItemCount() > clients; }, 60'000));
    ASSERT_EQ(Tree().topLevelItem(1)->text(0), "OTHER");
    EXPECT_FALSE(Tree().topLevelItem(1)->child(0)->isExpanded());
    EXPECT_TRUE(Tree().topLevelItem(1)->isExpanded());
    EXPECT_TRUE(Tree().topLevelItem(2)->child(0)->isExpanded()) << "what is new is open";
}

TEST_F(KeptView, OfThePointedDepthOutlivesAMomentWithoutTheFile)
{
    Plot().PointTo(0);
    QTest::keyClick(&Plot(), Qt::Key_Down);
    const auto values = Find<QLabel>("values").text();
    ASSERT_FALSE(values.isEmpty());
    const auto bytes = tests::FileBytes(report_);
    const auto data = tests::FileBytes(tests::DataReportOf(report_));
    std::ofstream(report_, std::ios::trunc) << "";
    ASSERT_TRUE(QTest::qWaitFor([&] { return Verdict() != "Verdict: good"; }, 60'000));
    EXPECT_EQ(Find<QLabel>("values").text(), "");
    std::ofstream(report_, std::ios::binary | std::ios::trunc) << bytes;
    ASSERT_TRUE(QTest::qWaitFor([&] { return Verdict() == "Verdict: good"; }, 60'000));
    EXPECT_EQ(Find<QLabel>("values").text(), values);
}

TEST_F(KeptView, OfTheStatusLineIsNotCoveredByWhatItHasSaidOfTheBase)
{
    window_.Open({tests::Download(folder_.Path(), "1:depth=20.5,moved=2,nlet=05")});
    auto& status = *window_.statusBar();
    const QString note = QStringLiteral("Compared with the base: the tube is 20.5 m deep");
    EXPECT_TRUE(status.currentMessage().startsWith(note));
    window_.Report("Written: sheet.pdf");
    const QSignalSpy said(&status, &QStatusBar::messageChanged);
    DownloadAnother();
    for (const auto& message : said)
        EXPECT_FALSE(message.front().toString().startsWith(note));
}

/// Two readings of one tube on one day, the second by the number of the first.
class SameReadout : public WindowTest
{
protected:
    SameReadout()
    {
        fs::create_directory(folder_ / "again");
        tests::Download(folder_ / "again", "1:depth=20,moved=1,nlet=00");
        window_.Open({folder_ / "COMUNE  -PENDIO 1-T1  -02-dat.dat"});
        Find<QTabBar>("kinds").setCurrentIndex(3);
    }

    QComboBox& Bases() { return Find<QComboBox>("bases"); }

    void ChooseBase(int number)
    {
        Bases().setCurrentIndex(number);
        Q_EMIT Bases().activated(number);
    }
};

TEST_F(SameReadout, StaysTheBaseThatWasChosen)
{
    ASSERT_EQ(Bases().count(), 4);
    ASSERT_EQ(Bases().itemData(1, Qt::ToolTipRole).toString().contains("again"),
              !Bases().itemData(0, Qt::ToolTipRole).toString().contains("again"));
    ChooseBase(1);
    const auto change = [&] { return Plot().Page().a.curves.at(0).points.front().value; };
    const auto before = change();
    tests::Download(folder_.Path(), "2:depth=20,client=OTHER");
    auto& tree = Find<QTreeWidget>("tree");
    ASSERT_TRUE(QTest::qWaitFor([&] { return tree.topLevelItemCount() == 2; }, 60'000));
    EXPECT_EQ(Bases().currentIndex(), 1);
    EXPECT_EQ(change(), before);
}

} // namespace
} // namespace tarvex::survey
