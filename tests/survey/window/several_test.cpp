#include "survey/files/separate_folders.h"
#include "survey/window/window_test.h"

#include <gmock/gmock.h>

#include <QMimeData>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>

namespace tarvex::survey
{
namespace
{

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class SeveralPaths : public WindowTest
{
protected:
    SeveralPaths()
    {
        later_ = tests::Download(other_.Path(), "1:depth=20,moved=5,nlet=05");
        tests::Download(other_.Path(), "2:depth=20,client=NEW");
    }

    QTreeWidget& Tree() { return Find<QTreeWidget>("tree"); }

    const fs::path first_ = folder_ / "COMUNE  -PENDIO 1-T1  -00-dat.dat";
    const fs::path second_ = folder_ / "COMUNE  -PENDIO 1-T1  -01-dat.dat";
    const tests::TemporaryFolder other_;
    fs::path later_;
};

TEST_F(SeveralPaths, OfReportsAreDrawnOverEachOtherTheNewestStrongest)
{
    window_.Open({later_, tests::DataReportOf(second_), first_});
    EXPECT_EQ(Tree().selectedItems().size(), 3);
    const auto& curves = Plot().Page().a.curves;
    ASSERT_EQ(curves.size(), 6U);
    EXPECT_EQ(curves.front().name, "A1, readout 00");
    EXPECT_FALSE(curves.front().strong);
    EXPECT_EQ(curves.back().name, "A3, readout 05");
    EXPECT_TRUE(curves.back().strong);
}

TEST_F(SeveralPaths, OfFoldersAreListedTogether)
{
    window_.Open({other_.Path(), folder_.Path()});
    ASSERT_EQ(Tree().topLevelItemCount(), 2);
    EXPECT_EQ(Tree().topLevelItem(0)->text(0), "COMUNE");
    EXPECT_EQ(Tree().topLevelItem(0)->child(0)->child(0)->childCount(), 4);
    EXPECT_EQ(Tree().selectedItems().size(), 1);
}

TEST_F(SeveralPaths, AreAllWatched)
{
    window_.Open({other_.Path(), first_});
    tests::Download(other_.Path(), "3:depth=20,client=ONE");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Tree().topLevelItemCount() == 3; }, 60'000));
    tests::Download(folder_.Path(), "3:depth=20,client=TWO");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Tree().topLevelItemCount() == 4; }, 60'000));
    EXPECT_EQ(Tree().selectedItems().size(), 1) << "what was chosen stays so";
}

TEST_F(SeveralPaths, OpenInPlaceOfThoseBefore)
{
    window_.Open({first_, second_});
    window_.Open({other_.Path()});
    EXPECT_EQ(Tree().topLevelItem(0)->child(0)->child(0)->childCount(), 1);
    EXPECT_EQ(Tree().selectedItems().size(), 1);
}

TEST_F(SeveralPaths, ShowTheGoodOnesAndNameTheRefused)
{
    tests::WriteFile(folder_ / "notes.txt", "hello");
    tests::WriteFile(folder_ / "more.txt", "hello");
    window_.Open({folder_ / "notes.txt", first_, folder_ / "more.txt"});
    EXPECT_EQ(Tree().selectedItems().size(), 1);
    const auto said = window_.statusBar()->currentMessage().toStdString();
    EXPECT_THAT(said, HasSubstr("notes.txt is no report"));
    EXPECT_THAT(said, HasSubstr("(and 1 more)"));
}

TEST_F(SeveralPaths, AreTakenFromOneDrop)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(PathText(first_)), QUrl::fromLocalFile(PathText(later_))});
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window_, &enter);
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window_, &event);
    EXPECT_EQ(Tree().selectedItems().size(), 2);
}

TEST(SeparateFolders, LeavesOutWhatIsWithinAnotherOrNamedTwice)
{
    const tests::TemporaryFolder folder;
    fs::create_directories(folder / "a/b");
    fs::create_directories(folder / "ab");
    fs::create_directory_symlink("a", folder / "link");
    EXPECT_THAT(Separate({folder / "a/b", folder / "ab", folder / "a", folder / "a/"}),
                ElementsAre(folder / "ab", folder / "a"));
    EXPECT_THAT(Separate({folder / "a", folder / "link/b", folder / "ab/../a"}),
                ElementsAre(folder / "a"));
    EXPECT_THAT(Separate({"/", folder.Path()}), ElementsAre("/"));
    EXPECT_THAT(Separate({folder / "gone", folder / "gone/below"}), ElementsAre(folder / "gone"));
}

} // namespace
} // namespace tarvex::survey
