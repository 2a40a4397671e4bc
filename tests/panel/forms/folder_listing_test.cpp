#include "panel/forms/folder_chooser_test.h"

#include <cerrno>
#include <filesystem>
#include <malloc.h>
#include <string>
#include <sys/inotify.h>

namespace tarvex::tests
{

TEST_F(FolderChooser, OpensNoFileOfTheFoldersThatItShows)
{
    fs::create_directories(dati / "A");
    WriteFile(dati / "report", "of no known ending");
    const int watch = inotify_init1(IN_NONBLOCK);
    ASSERT_GE(inotify_add_watch(watch, (dati / "report").c_str(), IN_OPEN), 0);
    forms.ShowFolderChooser();
    EXPECT_TRUE(Comes([&] { return Dir1().model()->rowCount(Dir1().currentIndex()) == 1; }));
    inotify_event opened{};
    EXPECT_EQ(read(watch, &opened, sizeof opened), -1);
    EXPECT_EQ(errno, EAGAIN);
    close(watch);
}

TEST_F(FolderChooser, ShowsTheFolderInViewAmongManyNeighbours)
{
    constexpr int kNeighbours = 200;
    for (int number = 0; number < kNeighbours; ++number)
        fs::create_directory(folder / ("a" + std::to_string(number)));
    forms.ShowFolderChooser();
    const QPersistentModelIndex current = Dir1().currentIndex();
    EXPECT_TRUE(Comes([&] {
        return current.row() == kNeighbours &&
               Dir1().viewport()->rect().contains(Dir1().visualRect(current).center());
    })) << "row "
        << current.row() << " of " << Dir1().model()->rowCount(current.parent());
}

TEST_F(FolderChooser, ListsOfTheFoldersAboveOnlyTheWayUntilOneIsGoneTo)
{
    fs::create_directories(folder / "a" / "start");
    fs::create_directories(folder / "b");
    panel::SideForms other({state, panel, handlers, boxes, folder / "a" / "start"}, dialogs, shell,
                           folder.Path());
    other.ShowFolderChooser();
    const QPersistentModelIndex start = Dir1().currentIndex().parent();
    const QPersistentModelIndex above = start.parent().parent();
    EXPECT_EQ(RowsIn(start), 1);
    for (QModelIndex way = start.parent(); way.isValid(); way = way.parent())
        EXPECT_EQ(RowsIn(way), 1) << way.data().toString().toStdString();
    Dir1().setCurrentIndex(above);
    EXPECT_EQ(ShownPath(), folder.Path());
    EXPECT_EQ(RowsIn(above), 3); // a, b, and the home of these tests
    EXPECT_EQ(RowsIn(start.parent()), 1);
}

TEST_F(FolderChooser, ShowsWhatCameAndWentWhenAFolderIsOpenedAgain)
{
    for (const char* name : {"B", "D", "E", "H"})
        fs::create_directories(dati / name);
    forms.ShowFolderChooser();
    const QPersistentModelIndex here = Dir1().currentIndex();
    const QPersistentModelIndex stays = IndexOf(dati / "H");
    for (const char* name : {"D", "E"})
        fs::remove(dati / name);
    for (const char* name : {"A", "C", "F", "G", "I"})
        fs::create_directories(dati / name);
    Dir1().collapse(here);
    Dir1().expand(here);
    std::string names;
    for (int row = 0; row < RowsIn(here); ++row)
        names += here.model()->index(row, 0, here).data().toString().toStdString();
    EXPECT_EQ(names, "ABCFGHI");
    EXPECT_EQ(stays.data().toString().toStdString(), "H");
}

TEST_F(FolderChooser, TakesLittleMemoryForEachFolder)
{
    constexpr std::size_t kFolders = 2000;
    for (std::size_t number = 0; number < kFolders; ++number)
        fs::create_directories(dati / ("borehole " + std::to_string(number)));
    forms.ShowFolderChooser();
    const QModelIndex here = Dir1().currentIndex();
    Dir1().collapse(here);
    fs::rename(dati, folder / "full");
    fs::create_directory(dati);
    Dir1().expand(here);
    EXPECT_EQ(RowsIn(here), 0);
    Window("Form6").grab(); // what painting keeps is there from now on
    Dir1().collapse(here);
    fs::remove(dati);
    fs::rename(folder / "full", dati);
    const std::size_t before = mallinfo2().uordblks;
    Dir1().expand(here);
    Window("Form6").grab();
    EXPECT_EQ(RowsIn(here), static_cast<int>(kFolders));
    EXPECT_LT(mallinfo2().uordblks - before, kFolders * 400); // 20 MB for 50,000
}

} // namespace tarvex::tests
