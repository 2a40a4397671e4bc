#include "panel/survey/form5_test.h"
#include "platform/sqlite/raw_database.h"

#include <vector>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

TEST_F(Form5Test, AMarkThatCannotBeWrittenStaysInItsEditorAndIsReported)
{
    RawDatabase raw(survey.databasePath);
    raw.Run("BEGIN IMMEDIATE");
    Type("8");
    Type(Qt::Key_Return);
    EXPECT_EQ(Cell(0, "b"), "");
    EXPECT_EQ(EditedText(), "8");
    EXPECT_EQ(Notice(), "The mark \"8\" is not stored: another program is writing to the "
                        "database. Enter tries again, Escape drops the mark.");
    raw.Run("ROLLBACK");
    EXPECT_EQ(Mark(0), Value());
    Type(Qt::Key_Return);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Notice(), "");
    EXPECT_EQ(Mark(0), "8");
}

TEST_F(Form5Test, EscapeDropsAMarkThatCannotBeWritten)
{
    RawDatabase raw(survey.databasePath);
    raw.Run("BEGIN IMMEDIATE");
    Type("8");
    Type(Qt::Key_Return);
    Type(Qt::Key_Escape);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Notice(), "");
    raw.Run("ROLLBACK");
    Window("Form5").close();
    EXPECT_EQ(Find("Form5"), nullptr);
    EXPECT_EQ(Mark(0), Value());
}

TEST_F(Form5Test, StaysOpenAsLongAsAMarkCannotBeWritten)
{
    RawDatabase raw(survey.databasePath);
    raw.Run("BEGIN IMMEDIATE");
    Type("8");
    Press("Form5", "ssCommand2");
    EXPECT_EQ(EditedText(), "8");
    EXPECT_NE(Notice(), "");
    raw.Run("ROLLBACK");
    Press("Form5", "ssCommand2");
    EXPECT_EQ(Find("Form5"), nullptr);
    EXPECT_EQ(Mark(0), "8");
}

TEST_F(Form5Test, AnotherMarkBeginsOnlyWhenTheRefusedOneIsStored)
{
    RawDatabase raw(survey.databasePath);
    raw.Run("BEGIN IMMEDIATE");
    Type("8");
    DoubleClick(1, "b");
    EXPECT_EQ(EditedText(), "8");
    raw.Run("ROLLBACK");
    DoubleClick(1, "b");
    Type("9");
    Type(Qt::Key_Return);
    EXPECT_THAT((std::vector{Mark(0), Mark(1)}), ElementsAre("8", "9"));
}

TEST_F(Form5Test, AMarkForAFileThatIsGoneIsReportedAndTheRowsGo)
{
    Type("8");
    std::filesystem::rename(survey.databasePath, folder / "away.mdb");
    Type(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(Notice(), "The mark \"8\" is not stored: the database has changed or cannot be "
                        "written. Look at its rows and type the mark again.");
    EXPECT_EQ(Grid().model()->rowCount(), 0);
    EXPECT_FALSE(IsEditing());
    EXPECT_FALSE(std::filesystem::exists(survey.databasePath));
    EXPECT_THAT(RawDatabase(folder / "away.mdb").Run("SELECT count(b) FROM tar_vex"),
                ElementsAre("0"));
}

TEST_F(Form5Test, AMarkIsNotWrittenToATubeThatWasNotShown)
{
    Type("8");
    std::filesystem::copy(survey.databasePath, folder / "new.mdb");
    RawDatabase(folder / "new.mdb").Run("UPDATE tar_vex SET tubo = 'NEW '");
    std::filesystem::rename(folder / "new.mdb", survey.databasePath);
    Type(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(Mark(0), Value());
    EXPECT_EQ(Cell(0, "tubo"), "NEW ");
    EXPECT_NE(Notice(), "");
}

} // namespace
} // namespace tarvex::tests
