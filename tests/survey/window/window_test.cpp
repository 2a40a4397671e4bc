#include "survey/window/window_test.h"

#include "survey/checks/check.h"
#include "survey/files/load.h"
#include "survey/window/export_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDirIterator>
#include <QFileDialog>
#include <QLabel>
#include <QMimeData>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace tarvex::survey
{
namespace
{

using ::testing::HasSubstr;

TEST_F(WindowTest, ShowsTheFoldersTreeAndItsLastReading)
{
    window_.Open({folder_.Path()});
    auto& tree = Find<QTreeWidget>("tree");
    ASSERT_EQ(tree.topLevelItemCount(), 1);
    const auto* const tube = tree.topLevelItem(0)->child(0)->child(0);
    EXPECT_EQ(tube->text(0), "T1");
    ASSERT_EQ(tube->childCount(), 3);
    EXPECT_TRUE(tube->child(2)->isSelected());
    EXPECT_EQ(Verdict(), "Verdict: good");
    EXPECT_EQ(Find<QTableView>("table").model()->rowCount(), 40);
}

TEST_F(WindowTest, ShowsTheReportThatItIsGiven)
{
    const auto spike = tests::Download(folder_.Path(), "4:depth=20,spike=12.5");
    window_.Open({tests::DataReportOf(spike)});
    EXPECT_EQ(Verdict(), "Verdict: read again at 12.5 m (A)");
    const auto& table = *Find<QTableView>("table").model();
    EXPECT_THAT(table.index(24, table.columnCount() - 1).data().toString().toStdString(),
                HasSubstr("spike: the half difference"));
    EXPECT_TRUE(table.index(24, 0).data(Qt::BackgroundRole).isValid());
    EXPECT_FALSE(table.index(23, 0).data(Qt::BackgroundRole).isValid());
}

TEST_F(WindowTest, ShowsAWorkFileByItsName)
{
    window_.Open({folder_ / "datiram.dat"});
    EXPECT_EQ(Verdict(), "Verdict: good");
    EXPECT_EQ(Find<QTableView>("table").model()->rowCount(), 40);
}

TEST_F(WindowTest, RefusesAFileThatIsNoReportInOneSentence)
{
    tests::WriteFile(folder_ / "notes.txt", "hello");
    window_.Open({folder_ / "notes.txt"});
    EXPECT_THAT(window_.statusBar()->currentMessage().toStdString(), HasSubstr("is no report"));
}

TEST_F(WindowTest, NoticesADownloadByItself)
{
    window_.Open({folder_.Path()});
    tests::Download(folder_.Path(), "2:depth=20,client=NEW");
    auto& tree = Find<QTreeWidget>("tree");
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree.topLevelItemCount() == 2; }, 60'000));
    EXPECT_EQ(Verdict(), "Verdict: good");
    EXPECT_TRUE(tree.topLevelItem(0)->child(0)->child(0)->child(2)->isSelected());
}

TEST_F(WindowTest, NoticesADownloadIntoANewFolderWithinTheFolder)
{
    window_.Open({folder_.Path()});
    std::filesystem::create_directories(folder_ / "site/tube");
    auto& tree = Find<QTreeWidget>("tree");
    QTest::qWait(1000); // the folders have been seen by themselves
    tests::Download(folder_ / "site/tube", "2:depth=20,client=NEW");
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree.topLevelItemCount() == 2; }, 60'000));
}

TEST_F(WindowTest, NoticesWhatBecomesOfAFolderWithinTheFolder)
{
    std::filesystem::create_directory(folder_ / "old");
    tests::Download(folder_ / "old", "2:depth=20,client=NEW");
    window_.Open({folder_.Path()});
    auto& tree = Find<QTreeWidget>("tree");
    ASSERT_EQ(tree.topLevelItemCount(), 2);
    std::filesystem::rename(folder_ / "old", folder_ / "renamed");
    const auto isRenamed = [&] {
        const auto* const top = tree.topLevelItem(1);
        return top != nullptr &&
               top->child(0)->child(0)->child(0)->toolTip(0).contains(QStringLiteral("/renamed/"));
    };
    EXPECT_TRUE(QTest::qWaitFor(isRenamed, 60'000));
    tests::Download(folder_ / "renamed", "2:depth=20,client=LATER");
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree.topLevelItemCount() == 3; }, 60'000));
    std::filesystem::remove_all(folder_ / "renamed");
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree.topLevelItemCount() == 1; }, 60'000));
}

TEST_F(WindowTest, FindsItsFolderAgainThatWasGone)
{
    const auto dati = folder_ / "dati";
    std::filesystem::create_directory(dati);
    tests::Download(dati, "2:depth=20,client=NEW");
    window_.Open({dati});
    auto& tree = Find<QTreeWidget>("tree");
    ASSERT_EQ(tree.topLevelItemCount(), 1);
    std::filesystem::rename(dati, folder_ / "away");
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree.topLevelItemCount() == 0; }, 60'000));
    std::filesystem::rename(folder_ / "away", dati);
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree.topLevelItemCount() == 1; }, 60'000));
}

TEST_F(WindowTest, KeepsAllThatIsChosenWhenADownloadAppears)
{
    window_.Open({folder_.Path()});
    auto& tree = Find<QTreeWidget>("tree");
    tree.topLevelItem(0)->child(0)->child(0)->child(0)->setSelected(true);
    tests::Download(folder_.Path(), "2:depth=20,client=NEW");
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree.topLevelItemCount() == 2; }, 60'000));
    EXPECT_EQ(tree.selectedItems().size(), 2);
}

TEST(FolderWatch, WatchesABoundedNumberOfFolders)
{
    const tests::TemporaryFolder folder;
    for (int number = 0; number < 300; ++number)
        std::filesystem::create_directory(folder / std::to_string(number));
    FolderWatch watch([] {});
    watch.Follow({folder.Path()});
    EXPECT_EQ(watch.Count(), FolderWatch::kMostFolders);
}

class NamelessFolderTest : public WindowTest
{
protected:
    NamelessFolderTest()
    {
        std::filesystem::create_directory(nameless_);
        report_ = tests::Download(nameless_, "2:depth=20,client=NEW");
    }

    const std::filesystem::path nameless_ = folder_ / "Gef\xE4lle"; // no UTF-8
    std::filesystem::path report_;
};

TEST_F(NamelessFolderTest, IsOpenedAndWatched)
{
    window_.Open({nameless_});
    auto& tree = Find<QTreeWidget>("tree");
    ASSERT_EQ(tree.topLevelItemCount(), 1);
    EXPECT_THAT(tree.topLevelItem(0)->child(0)->child(0)->child(0)->toolTip(0).toStdString(),
                HasSubstr("Gef\uFFFDlle/"));
    tests::Download(nameless_, "2:depth=20,client=LATER");
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree.topLevelItemCount() == 2; }, 60'000));
}

TEST_F(NamelessFolderTest, IsTakenWhenAReportInItIsDropped)
{
    QMimeData data;
    data.setUrls(
        {QUrl::fromEncoded(QByteArray("file://") +
                           QByteArray::fromStdString(report_.native()).toPercentEncoding("/"))});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window_, &enter);
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window_, &event);
    EXPECT_EQ(Verdict(), "Verdict: good");
    EXPECT_EQ(Find<QTreeWidget>("tree").topLevelItem(0)->text(0), "NEW");
}

TEST_F(NamelessFolderTest, HasANameForTheToolkitThatLeadsBack)
{
    const NamedFolder named(nameless_);
    EXPECT_TRUE(QDir(named.Name()).exists(PathText(report_.filename())));
    EXPECT_EQ(named.PathOf(named.Name() + QStringLiteral("/sheet.pdf")), nameless_ / "sheet.pdf");
    EXPECT_EQ(named.PathOf(QStringLiteral("/tmp/sheet.pdf")), "/tmp/sheet.pdf");
}

TEST_F(NamelessFolderTest, TakesEveryExport)
{
    const auto survey = Load(report_);
    const auto verdict = Check(survey, {});
    for (const char* name : {"a.pdf", "a.svg", "a.png", "a.xlsx", "a.csv", "\xE4.json"}) {
        WriteAs({survey, nullptr, verdict, {}, {}}, nameless_ / name);
        EXPECT_FALSE(tests::FileBytes(nameless_ / name).empty()) << name;
    }
}

TEST_F(WindowTest, DrawsEachKindForBothChannels)
{
    window_.Open({folder_.Path()});
    auto& kinds = Find<QTabBar>("kinds");
    ASSERT_EQ(kinds.count(), 4);
    const std::array<std::size_t, 4> curves{2, 1, 1, 1};
    for (int kind = 0; kind < 4; ++kind) {
        kinds.setCurrentIndex(kind);
        EXPECT_EQ(Plot().Page().a.curves.size(), curves[static_cast<std::size_t>(kind)]);
        EXPECT_EQ(Plot().Page().b.curves.size(), curves[static_cast<std::size_t>(kind)]);
        EXPECT_EQ(Plot().axisRectCount(), 2);
    }
    EXPECT_NEAR(Plot().Page().a.curves[0].points.front().value, 9 * 24, 30);
}

TEST_F(WindowTest, ComparesWithTheBaseThatIsChosen)
{
    window_.Open({folder_.Path()});
    Find<QTabBar>("kinds").setCurrentIndex(3);
    auto& bases = Find<QComboBox>("bases");
    ASSERT_EQ(bases.count(), 3);
    EXPECT_EQ(bases.currentIndex(), 0);
    bases.setCurrentIndex(1);
    Q_EMIT bases.activated(1);
    EXPECT_NEAR(Plot().Page().a.curves[0].points.front().value, 9 * 12, 30);
    EXPECT_EQ(Plot().Page().a.title, "A: sum of change, counts");
}

TEST_F(WindowTest, SaysThatTheBaseDoesNotChangeAgainstItself)
{
    window_.Open({folder_ / "COMUNE  -PENDIO 1-T1  -00-dat.dat"});
    Find<QTabBar>("kinds").setCurrentIndex(3);
    EXPECT_EQ(Plot().Page().a.title, "A: the base itself, no change");
    EXPECT_EQ(Plot().Page().b.title, "B: the base itself, no change");
    EXPECT_EQ(Plot().Page().a.curves[0].points.front().value, 0);
    Find<QTreeWidget>("tree").topLevelItem(0)->child(0)->child(0)->child(1)->setSelected(true);
    EXPECT_EQ(Plot().Page().a.title, "A: sum of change, counts") << "of the other one";
}

TEST_F(WindowTest, DrawsReadingsOverEachOtherTheNewestStrongest)
{
    window_.Open({folder_.Path()});
    Find<QTreeWidget>("tree").topLevelItem(0)->child(0)->child(0)->child(0)->setSelected(true);
    const auto& curves = Plot().Page().a.curves;
    ASSERT_EQ(curves.size(), 4U);
    EXPECT_FALSE(curves[0].strong);
    EXPECT_EQ(curves[0].name, "A1, readout 00");
    EXPECT_TRUE(curves[3].strong);
    EXPECT_EQ(curves[3].name, "A3, readout 02");
}

TEST_F(WindowTest, MarksThePointedDepthInTheTableAndShowsItsValues)
{
    window_.Open({folder_.Path()});
    Plot().PointTo(0);
    QTest::keyClick(&Plot(), Qt::Key_Down);
    QTest::keyClick(&Plot(), Qt::Key_Down);
    EXPECT_EQ(Find<QTableView>("table").currentIndex().row(), 1);
    EXPECT_THAT(Find<QLabel>("values").text().toStdString(), HasSubstr("Depth 1.0   A1 "));
    QTest::keyClick(&Plot(), Qt::Key_Up);
    EXPECT_EQ(Find<QTableView>("table").currentIndex().row(), 0);
}

TEST_F(WindowTest, KeepsThePointedDepthInViewWhereThePlotsAreZoomed)
{
    window_.Open({folder_.Path()});
    Plot().PointTo(100);
    for (int times = 0; times < 6; ++times)
        QTest::keyClick(&Plot(), Qt::Key_Plus);
    const double size = Plot().axisRect(1)->axis(QCPAxis::atLeft)->range().size();
    ASSERT_LT(size, 8);
    for (const auto key : {Qt::Key_Down, Qt::Key_Up})
        for (int steps = 0; steps < 35; ++steps) {
            QTest::keyClick(&Plot(), key);
            const auto shown = Plot().axisRect(1)->axis(QCPAxis::atLeft)->range();
            ASSERT_TRUE(shown.contains(Plot().Pointed() / 10)) << Plot().Pointed();
            ASSERT_NEAR(shown.size(), size, 1e-9);
        }
}

TEST_F(WindowTest, ZoomsByKeysInBothChannelsAndShowsAllAgain)
{
    window_.Open({folder_.Path()});
    const auto depth = [&](int rect) {
        return Plot().axisRect(rect)->axis(QCPAxis::atLeft)->range();
    };
    const auto whole = depth(0);
    QTest::keyClick(&Plot(), Qt::Key_Plus);
    EXPECT_NEAR(depth(0).size(), whole.size() * 0.8, 1e-9);
    EXPECT_EQ(depth(0), depth(1));
    QTest::keyClick(&Plot(), Qt::Key_PageDown);
    EXPECT_EQ(depth(0), depth(1));
    QTest::keyClick(&Plot(), Qt::Key_Home);
    EXPECT_EQ(depth(0), whole);
}

TEST_F(WindowTest, NamesEveryControlForThoseWhoDoNotSeeIt)
{
    EXPECT_EQ(Find<QLabel>("verdict").accessibleName(), Find<QLabel>("verdict").text());
    for (const char* name : {"tree", "verdict", "kinds", "bases", "plot", "table", "values"})
        EXPECT_FALSE(Find<QWidget>(name).accessibleName().isEmpty()) << name;
}

TEST_F(WindowTest, IsDarkWhereTheDesktopIs)
{
    window_.Open({tests::Download(folder_.Path(), "4:depth=20,spike=12.5")});
    const auto& table = *Find<QTableView>("table").model();
    const auto lightness = [&] {
        return std::pair(table.index(24, 0).data(Qt::BackgroundRole).value<QColor>().lightness(),
                         Plot().axisRect(0)->axis(QCPAxis::atLeft)->tickLabelColor().lightness());
    };
    EXPECT_GT(lightness().first, 128);
    EXPECT_LT(lightness().second, 128);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(40, 40, 40), QColor(40, 40, 40)));
    QTest::qWait(10);
    EXPECT_LT(lightness().first, 128) << "the ground of a row that is out";
    EXPECT_GT(lightness().second, 128) << "the ink of the plot";
    QApplication::setPalette(before);
}

TEST_F(WindowTest, FitsASmallScreen)
{
    EXPECT_LE(window_.minimumSizeHint().width(), 800);
    EXPECT_LE(window_.minimumSizeHint().height(), 560);
}

TEST_F(WindowTest, TakesADroppedFolder)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(folder_.Path().string()))});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window_, &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window_, &event);
    EXPECT_EQ(Verdict(), "Verdict: good");
}

TEST_F(WindowTest, LeavesNothingOfItsFileDialogsInTheOperatorsHome)
{
    int closed = 0;
    for (auto* const action : window_.findChildren<QAction*>()) {
        if (!action->text().startsWith("Open ") && !action->text().startsWith("&Open ")) continue;
        QTimer::singleShot(0, &window_, [&] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->reject();
            ++closed;
        });
        action->trigger();
    }
    EXPECT_EQ(closed, 2);
    EXPECT_FALSE(
        QDirIterator(QDir::homePath(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories)
            .hasNext());
}

TEST(RowModel, FindsTheRowNearestToADepth)
{
    RowModel rows;
    EXPECT_EQ(rows.RowNear(5), -1);
    Survey survey;
    survey.rows = {{5, {}, 1}, {10, {}, 2}, {30, {}, 3}};
    rows.Show(survey, {});
    EXPECT_EQ(rows.RowNear(0), 0);
    EXPECT_EQ(rows.RowNear(19), 1);
    EXPECT_EQ(rows.RowNear(500), 2);
}

} // namespace
} // namespace tarvex::survey
