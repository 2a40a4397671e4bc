#include "database/survey_test.h"
#include "platform/sqlite/raw_database.h"
#include "support/ordinary_user.h"

#include <sys/stat.h>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using namespace std::string_literals;

/// The file under the database's name is not, or not entirely, what the program made.
class ForeignFileTest : public SurveyTest
{
protected:
    /// Neither command gets a handle: the outcomes of a database that is not there.
    void ExpectNoHandle()
    {
        EXPECT_THROW(backend->OpenTable(survey.databasePath), RunTimeFailure);
        Read();
        EXPECT_EQ(gridsShown, 1);
        boxes.Expect("Attention: Invalid DEPTH value");
        Write();
        EXPECT_EQ(state.blockHeader, DefaultHeader(0));
    }

    /// As ExpectNoHandle, and the folder is the same before and after, byte by byte.
    void ExpectUntouched()
    {
        const auto before = FolderContent();
        ExpectNoHandle();
        EXPECT_TRUE(FolderContent() == before);
    }

    std::map<std::string, std::string> FolderContent()
    {
        std::map<std::string, std::string> content;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
            content[entry.path().filename().string()] =
                entry.is_regular_file() ? FileBytes(entry.path()) : "";
        }
        return content;
    }

    /// The bytes of a database with one row.
    std::string DatabaseBytes()
    {
        const auto file = folder / "made.mdb";
        {
            const auto table = backend->OpenTable(file);
            table->AddNew();
            table->Update();
        }
        std::string bytes = FileBytes(file);
        std::filesystem::remove(file);
        return bytes;
    }
};

struct Foreign {
    const char* situation;
    std::string bytes;
};

void PrintTo(const Foreign& foreign, std::ostream* out)
{
    *out << foreign.bytes.size() << " bytes";
}

class ForeignBytesTest : public ForeignFileTest, public ::testing::WithParamInterface<Foreign>
{
};

INSTANTIATE_TEST_SUITE_P(
    WithoutTheMark, ForeignBytesTest,
    ::testing::Values(Foreign{"OneByte", "x"}, Foreign{"Text", "a letter\r\n"},
                      Foreign{"Nuls", std::string(8192, '\0')},
                      Foreign{"AnotherKind", "\0\1\0\0Another Kind\0"s + std::string(4096, 'x')},
                      Foreign{"HalfTheMark", "SQLite f"},
                      Foreign{"AnOlderMark", "** This file contains an SQLite 2.1 database **"}),
    SituationOf<Foreign>);

INSTANTIATE_TEST_SUITE_P(WithTheMark, ForeignBytesTest,
                         ::testing::Values(Foreign{"Alone", "SQLite format 3\0"s},
                                           Foreign{"AndLetters",
                                                   "SQLite format 3\0"s + std::string(5000, 'x')}),
                         SituationOf<Foreign>);

TEST_P(ForeignBytesTest, IsNeverTouched)
{
    WriteFile(survey.databasePath, GetParam().bytes);
    ExpectUntouched();
}

TEST_F(ForeignFileTest, AForeignFileWithALeftOverLogIsNotTouchedEither)
{
    {
        const auto table = backend->OpenTable(survey.databasePath);
        RawDatabase raw(survey.databasePath);
        raw.Run("PRAGMA journal_mode = WAL");
        raw.Run("INSERT INTO tar_vex (b) VALUES ('5')");
        const std::string log = FileBytes(folder / "tar_vex.mdb-wal");
        ASSERT_FALSE(log.empty());
        table->Close();
        WriteFile(folder / "tar_vex.mdb-wal", log);
    }
    WriteFile(survey.databasePath, "a letter");
    ExpectUntouched();
}

TEST_F(ForeignFileTest, ADamagedDatabaseIsNotMadeWorse)
{
    std::string bytes = DatabaseBytes();
    bytes.replace(100, 3000, std::string(3000, '\x55'));
    WriteFile(survey.databasePath, bytes);
    EXPECT_THROW(backend->OpenTable(survey.databasePath), RunTimeFailure);
    EXPECT_TRUE(FileBytes(survey.databasePath) == bytes);
}

TEST_F(ForeignFileTest, ADatabaseCutShortIsNotMadeWorse)
{
    const std::string bytes = DatabaseBytes().substr(0, 4096);
    WriteFile(survey.databasePath, bytes);
    EXPECT_THROW(
        {
            const auto table = backend->OpenTable(survey.databasePath);
            table->MoveFirst();
        },
        RunTimeFailure);
    EXPECT_EQ(FileBytes(survey.databasePath).substr(0, 16), "SQLite format 3\0"s);
}

TEST_F(ForeignFileTest, AnEmptyFileIsANewDatabase)
{
    WriteFile(survey.databasePath, "");
    AddRow({{"b", "5"}});
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "5"}}));
}

TEST_F(ForeignFileTest, AFolderOfThatNameIsNoDatabase)
{
    std::filesystem::create_directory(survey.databasePath);
    ExpectUntouched();
}

TEST_F(ForeignFileTest, APipeOfThatNameHoldsNothingUp)
{
    ASSERT_EQ(::mkfifo(survey.databasePath.c_str(), 0600), 0);
    ExpectUntouched();
}

TEST_F(ForeignFileTest, AFolderThatIsGoneGivesNoHandle)
{
    survey.databasePath = folder / "gone" / "tar_vex.mdb";
    ExpectUntouched();
}

TEST_F(ForeignFileTest, ALinkToADatabaseIsFollowed)
{
    std::filesystem::create_symlink(folder / "real.mdb", survey.databasePath);
    AddRow({{"b", "5"}});
    EXPECT_TRUE(std::filesystem::is_regular_file(folder / "real.mdb"));
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "5"}}));
}

TEST_F(ForeignFileTest, ANameOutsideUnicodeIsLikeAnyOther)
{
    survey.databasePath = folder / "citt\xE0.mdb";
    AddRow({{"b", "5"}});
    EXPECT_THAT(NamesIn(folder.Path()), ElementsAre("citt\xE0.mdb", "intestazione"));
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "5"}}));
}

TEST_F(ForeignFileTest, AFolderOutsideUnicodeHoldsADatabaseLikeAnyOther)
{
    std::filesystem::create_directory(folder / "Citt\xE0");
    survey.databasePath = folder / "Citt\xE0" / "tar_vex.mdb";
    AddRow({{"b", "5"}});
    EXPECT_TRUE(std::filesystem::is_regular_file(survey.databasePath));
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "5"}}));
}

TEST_F(ForeignFileTest, AnyOtherNameWillDo)
{
    survey.databasePath = folder / "citt\xC3\xA0 'x'; \"y\" %20?mode=ro&z #.mdb";
    AddRow({{"b", "5"}});
    EXPECT_TRUE(std::filesystem::exists(survey.databasePath));
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "5"}}));
}

TEST_F(ForeignFileTest, NoFileIsLeftBesideTheDatabase)
{
    AddRow({{"b", ""}});
    Read();
    Write();
    std::vector<std::string> names;
    for (const auto& [name, bytes] : FolderContent())
        names.push_back(name);
    EXPECT_THAT(names, ElementsAre("intestazione", "tar_vex.mdb"));
}

struct Schema {
    const char* situation;
    const char* statement;
};

class ForeignSchemaTest : public ForeignFileTest, public ::testing::WithParamInterface<Schema>
{
};

INSTANTIATE_TEST_SUITE_P(
    Table, ForeignSchemaTest,
    ::testing::Values(Schema{"MissingColumns", "CREATE TABLE tar_vex (cliente, cantiere, tubo, b)"},
                      Schema{"NoneOfTheColumns", "CREATE TABLE tar_vex (x)"},
                      Schema{"AView", "CREATE VIEW tar_vex AS SELECT 1 AS cliente"}),
    SituationOf<Schema>);

TEST_P(ForeignSchemaTest, IsLeftAsItIs)
{
    RawDatabase(survey.databasePath).Run(GetParam().statement);
    ExpectUntouched();
}

TEST_F(ForeignFileTest, AViewWithAllTheColumnsIsNoTable)
{
    RawDatabase raw(survey.databasePath);
    backend->OpenTable(survey.databasePath)->Close();
    raw.Run("ALTER TABLE tar_vex RENAME TO other");
    raw.Run("CREATE VIEW tar_vex AS SELECT * FROM other");
    EXPECT_THROW(backend->OpenTable(survey.databasePath), RunTimeFailure);
}

TEST_F(ForeignFileTest, ATableWithoutItsLastColumnIsLeftAsItIs)
{
    AddRow({{"tubo", "T1  "}, {"b", "5"}});
    RawDatabase raw(survey.databasePath);
    raw.Run("ALTER TABLE tar_vex DROP COLUMN b");
    const auto before = raw.Run("SELECT * FROM sqlite_master");
    EXPECT_THROW(backend->OpenTable(survey.databasePath), RunTimeFailure);
    EXPECT_EQ(raw.Run("SELECT * FROM sqlite_master"), before);
    EXPECT_THAT(raw.Run("SELECT tubo FROM tar_vex"), ElementsAre("T1  "));
}

TEST_F(ForeignFileTest, TheTablesOfOthersStay)
{
    RawDatabase raw(survey.databasePath);
    raw.Run("CREATE TABLE notes (text)");
    raw.Run("INSERT INTO notes VALUES ('keep')");
    AddRow({{"b", "5"}});
    EXPECT_THAT(raw.Run("SELECT * FROM notes"), ElementsAre("keep"));
    EXPECT_THAT(raw.Run("SELECT b FROM tar_vex"), ElementsAre("5"));
}

TEST_F(ForeignFileTest, ADatabaseThatAnotherProgramIsWritingGivesNoHandle)
{
    AddRow({{"tubo", "T1  "}, {"b", "5"}});
    RawDatabase raw(survey.databasePath);
    raw.Run("BEGIN IMMEDIATE");
    raw.Run("UPDATE tar_vex SET tubo = 'T2'");
    ExpectNoHandle();
    raw.Run("COMMIT");
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"tubo", "T2"}, {"b", "5"}}));
}

TEST_F(ForeignFileTest, ADatabaseLockedWhollyGivesNoHandle)
{
    AddRow({{"b", "5"}});
    RawDatabase raw(survey.databasePath);
    raw.Run("PRAGMA locking_mode = EXCLUSIVE");
    raw.Run("BEGIN EXCLUSIVE");
    ExpectNoHandle();
}

TEST_F(ForeignFileTest, AnUpdateDuringAnothersWriteFailsAndCanBeRepeated)
{
    AddRow({{"b", "5"}});
    const auto table = backend->OpenTable(survey.databasePath);
    table->Edit();
    table->SetField("b", "6");
    RawDatabase raw(survey.databasePath);
    raw.Run("BEGIN IMMEDIATE");
    EXPECT_THROW(table->Update(), RunTimeFailure);
    raw.Run("ROLLBACK");
    table->Update();
    EXPECT_THAT(raw.Run("SELECT b FROM tar_vex"), ElementsAre("6"));
}

TEST_F(ForeignFileTest, MarksStayWhenAnotherProgramWritesDuringTheWalk)
{
    AddRow({{"b", "30"}});
    AddRow({{"b", "30"}});
    RawDatabase raw(survey.databasePath);
    boxes.Expect("Attention: Block no. is incorect", [&] { raw.Run("BEGIN IMMEDIATE"); });
    boxes.Expect("Attention: Block no. is incorect", [&] { raw.Run("ROLLBACK"); });
    Write();
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "30"}}, SurveyRow{{"b", ""}}));
}

TEST_F(ForeignFileTest, AFileThatMayNotBeWrittenGivesNoHandle)
{
    AddRow({{"b", "5"}});
    std::filesystem::permissions(survey.databasePath, std::filesystem::perms(0444));
    const std::string bytes = FileBytes(survey.databasePath);
    {
        OrdinaryUser user(folder.Path());
        EXPECT_THROW(backend->OpenTable(survey.databasePath), RunTimeFailure);
    }
    EXPECT_TRUE(FileBytes(survey.databasePath) == bytes);
}

TEST_F(ForeignFileTest, AFileThatMayNotBeReadGivesNoHandle)
{
    AddRow({{"b", "5"}});
    std::filesystem::permissions(survey.databasePath, std::filesystem::perms(0));
    OrdinaryUser user(folder.Path());
    EXPECT_THROW(backend->OpenTable(survey.databasePath), RunTimeFailure);
}

TEST_F(ForeignFileTest, AFolderThatMayNotBeWrittenGivesNoHandleAndNoFile)
{
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0555));
    const auto before = FolderContent();
    {
        OrdinaryUser user(folder.Path());
        EXPECT_THROW(backend->OpenTable(survey.databasePath), RunTimeFailure);
    }
    EXPECT_TRUE(FolderContent() == before);
}

TEST_F(ForeignFileTest, ADatabaseInAFolderThatMayNotBeWrittenGivesNoHandle)
{
    AddRow({{"b", "5"}});
    std::filesystem::permissions(survey.databasePath, std::filesystem::perms(0666));
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0555));
    const auto before = FolderContent();
    {
        OrdinaryUser user(folder.Path());
        EXPECT_THROW(backend->OpenTable(survey.databasePath), RunTimeFailure);
    }
    EXPECT_TRUE(FolderContent() == before);
}

TEST_F(ForeignFileTest, ADatabaseKeptWithALogInAFolderThatMayNotBeWrittenGivesNoHandle)
{
    AddRow({{"b", "5"}});
    RawDatabase(survey.databasePath).Run("PRAGMA journal_mode = WAL");
    std::filesystem::permissions(survey.databasePath, std::filesystem::perms(0666));
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0555));
    const auto before = FolderContent();
    {
        OrdinaryUser user(folder.Path());
        EXPECT_THROW(backend->OpenTable(survey.databasePath), RunTimeFailure);
    }
    EXPECT_TRUE(FolderContent() == before);
}

} // namespace
} // namespace tarvex::tests
