#include "database/survey_test.h"
#include "platform/sqlite/raw_database.h"
#include "platform/sqlite/sqlite_connection.h"
#include "platform/sqlite/statement.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

/// What lies in the folder while nothing is written, and what becomes of a file put in the
/// database's place.
class AtRestTest : public SurveyTest
{
protected:
    AtRestTest()
    {
        AddRow({{"tubo", "T1  "}, {"b", ""}});
        AddRow({{"tubo", "T2  "}, {"b", ""}});
    }

    std::unique_ptr<RecordSet> Table() { return backend->OpenTable(survey.databasePath); }

    /// The database's file and what is beside it under its name.
    std::vector<std::string> Files()
    {
        std::vector<std::string> names;
        for (const std::string& name : NamesIn(folder.Path()))
            if (name.starts_with("tar_vex.mdb")) names.push_back(name);
        return names;
    }

    std::filesystem::path Beside(const char* suffix)
    {
        return survey.databasePath.string() + suffix;
    }

    /// The bytes under those names after another program has run `statements` and before it commits
    /// or closes: what a kill at this moment leaves.
    std::map<std::string, std::string> LeftByAKill(const QStringList& statements)
    {
        RawDatabase raw(survey.databasePath);
        for (const QString& statement : statements)
            raw.Run(statement);
        std::map<std::string, std::string> left;
        for (const std::string& name : Files())
            if (!name.ends_with("-shm")) left[name] = FileBytes(folder / name);
        return left;
    }

    void PutInPlace(const std::map<std::string, std::string>& files)
    {
        for (const std::string& name : Files())
            std::filesystem::remove(folder / name);
        for (const auto& [name, bytes] : files)
            WriteFile(folder / name, bytes);
    }

    /// Some time after the kill: the clock of a file system does not separate two moments that are
    /// closer than a few milliseconds.
    void Replace(const std::string& bytes)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        WriteFile(survey.databasePath, bytes);
    }

    std::vector<Value> Tubes()
    {
        std::vector<Value> tubes;
        for (SurveyRow& row : Rows())
            tubes.push_back(row["tubo"]);
        return tubes;
    }
};

TEST_F(AtRestTest, OneFileHoldsEverythingWhileAHandleIsOpen)
{
    const auto table = Table();
    EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
    table->Edit();
    table->SetField("b", "7");
    table->Update();
    EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
    std::filesystem::copy_file(survey.databasePath, folder / "copy.mdb");
    EXPECT_THAT(RawDatabase(folder / "copy.mdb").Run("SELECT b FROM tar_vex"),
                ElementsAre("7", ""));
}

TEST_F(AtRestTest, OneFileHoldsEverythingWhileABoxOfWriteHeadersIsOpen)
{
    AddRow({});
    AddRow({{"b", "30"}});
    boxes.Expect("Attention: Block no. is incorect", [&] {
        EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
        std::filesystem::copy_file(survey.databasePath, folder / "copy.mdb");
    });
    Write();
    EXPECT_THAT(RawDatabase(folder / "copy.mdb").Run("SELECT b IS '' FROM tar_vex"),
                ElementsAre("1", "1", "1", "0"));
    EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
}

TEST_F(AtRestTest, WhatIsPutInPlaceWhileABoxOfReadHeadersIsOpenTakesTheRestOfTheReadings)
{
    PutHeader(1, DamHeader("00", "150926  ", "093015  "));
    BlockHeader beyond = DamHeader("26", "160926  ", "093015  ");
    PutHeader(2, beyond);
    beyond.tubo = "T9";
    beyond.nlet = "00";
    PutHeader(3, beyond);
    const std::string backup = FileBytes(survey.databasePath);
    boxes.Expect("ATTENTION: Already there were executed 25 readings ", [&] {
        EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
        WriteFile(folder / "backup.mdb", backup);
        std::filesystem::rename(folder / "backup.mdb", survey.databasePath);
    });
    Read();
    const std::vector<Value> tubes = Tubes();
    ASSERT_GE(tubes.size(), 3U);
    EXPECT_THAT((std::vector(tubes.begin(), tubes.begin() + 3)),
                ElementsAre("T1  ", "T2  ", "T9  "));
    EXPECT_THAT(RawDatabase(survey.databasePath).Run("PRAGMA integrity_check"), ElementsAre("ok"));
    EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
}

/// The highest of the engine's levels: the folder's entry of the journal, too, is on the disk.
TEST_F(AtRestTest, ACommitWaitsForTheDiskAndItsFolder)
{
    const platform::SqliteConnection connection(survey.databasePath);
    platform::Statement level(connection, "PRAGMA synchronous");
    ASSERT_TRUE(level.Step());
    EXPECT_EQ(level.Number(0), 3);
}

TEST_F(AtRestTest, AFolderOutsideUnicodeHoldsADatabase)
{
    const auto site = folder / "Citt\xE0";
    std::filesystem::create_directory(site);
    survey.databasePath = site / "tar_vex.mdb";
    AddRow({{"tubo", "T9  "}});
    EXPECT_THAT(Tubes(), ElementsAre("T9  "));
    EXPECT_THAT(NamesIn(site), ElementsAre("tar_vex.mdb"));
}

TEST_F(AtRestTest, ADatabaseKeptWithALogBecomesOneFile)
{
    RawDatabase(survey.databasePath).Run("PRAGMA journal_mode = WAL");
    const auto table = Table();
    EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
    EXPECT_EQ(FileBytes(survey.databasePath).substr(18, 2), "\1\1");
    EXPECT_EQ(table->Fields("tubo"), "T1  ");
}

TEST_F(AtRestTest, TheLogOfAKilledProgramIsTakenIn)
{
    PutInPlace(LeftByAKill({"PRAGMA journal_mode = WAL", "UPDATE tar_vex SET tubo = 'NEW '"}));
    ASSERT_THAT(Files(), ElementsAre("tar_vex.mdb", "tar_vex.mdb-wal"));
    EXPECT_THAT(Tubes(), ElementsAre("NEW ", "NEW "));
    EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
}

TEST_F(AtRestTest, ALeftOverLogIsNotReplayedOverABackup)
{
    const std::string backup = FileBytes(survey.databasePath);
    PutInPlace(LeftByAKill({"PRAGMA journal_mode = WAL", "UPDATE tar_vex SET tubo = 'NEW '"}));
    Replace(backup);
    EXPECT_THAT(Tubes(), ElementsAre("T1  ", "T2  "));
    EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
    EXPECT_THAT(RawDatabase(survey.databasePath).Run("PRAGMA integrity_check"), ElementsAre("ok"));
}

TEST_F(AtRestTest, ALeftOverLogIsNotReplayedOverABackupThatHadALogItself)
{
    RawDatabase(survey.databasePath).Run("PRAGMA journal_mode = WAL");
    const std::string backup = FileBytes(survey.databasePath);
    PutInPlace(LeftByAKill({"UPDATE tar_vex SET tubo = 'NEW '"}));
    ASSERT_THAT(Files(), ElementsAre("tar_vex.mdb", "tar_vex.mdb-wal"));
    Replace(backup);
    EXPECT_THAT(Tubes(), ElementsAre("T1  ", "T2  "));
    EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
}

/// Writes so much at once that some of it reaches the file before the commit.
const QStringList kHalfAWrite = {"PRAGMA cache_size = 2", "BEGIN IMMEDIATE",
                                 "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                                 "WHERE i < 5000) INSERT INTO tar_vex (tubo) SELECT i FROM n"};

TEST_F(AtRestTest, TheJournalOfAKilledProgramIsRolledBack)
{
    PutInPlace(LeftByAKill(kHalfAWrite));
    ASSERT_THAT(Files(), ElementsAre("tar_vex.mdb", "tar_vex.mdb-journal"));
    EXPECT_THAT(Tubes(), ElementsAre("T1  ", "T2  "));
    EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
    EXPECT_THAT(RawDatabase(survey.databasePath).Run("PRAGMA integrity_check"), ElementsAre("ok"));
}

TEST_F(AtRestTest, ALeftOverJournalIsNotRolledBackOverABackup)
{
    AddRow({{"tubo", "OLD "}});
    const std::string backup = FileBytes(survey.databasePath);
    RawDatabase(survey.databasePath).Run("DELETE FROM tar_vex");
    PutInPlace(LeftByAKill(kHalfAWrite));
    ASSERT_THAT(Files(), ElementsAre("tar_vex.mdb", "tar_vex.mdb-journal"));
    Replace(backup);
    EXPECT_THAT(Tubes(), ElementsAre("T1  ", "T2  ", "OLD "));
    EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
    EXPECT_THAT(RawDatabase(survey.databasePath).Run("PRAGMA integrity_check"), ElementsAre("ok"));
}

TEST_F(AtRestTest, TheJournalOfAMakingThatWasKilledDoesNotEmptyABackup)
{
    const std::string backup = FileBytes(survey.databasePath);
    std::filesystem::remove(survey.databasePath);
    auto left = LeftByAKill({"PRAGMA cache_size = 2", "BEGIN IMMEDIATE", "CREATE TABLE x (t)",
                             "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                             "WHERE i < 9000) INSERT INTO x SELECT i FROM n"});
    ASSERT_EQ(left.count("tar_vex.mdb-journal"), 1U);
    left["tar_vex.mdb"] = backup;
    PutInPlace(left);
    EXPECT_THAT(Tubes(), ElementsAre("T1  ", "T2  "));
    EXPECT_THAT(Files(), ElementsAre("tar_vex.mdb"));
}

TEST_F(AtRestTest, AFilePutInPlaceWhileAHandleIsOpenIsNotDamaged)
{
    const std::string backup = FileBytes(survey.databasePath);
    const auto table = Table();
    for (int row = 0; row < 200; ++row) {
        table->AddNew();
        table->SetField("tubo", std::string(100, 'x'));
        table->Update();
    }
    Replace(backup);
    try {
        table->MoveNext();
        table->Edit();
        table->SetField("b", "9");
        table->Update();
    } catch (const RunTimeFailure&) {
    }
    EXPECT_THAT(Tubes(), ElementsAre("T1  ", "T2  "));
    EXPECT_THAT(RawDatabase(survey.databasePath).Run("PRAGMA integrity_check"), ElementsAre("ok"));
}

TEST_F(AtRestTest, AHandleDoesNotGoOnInAFileThatIsGone)
{
    const auto table = Table();
    std::filesystem::rename(survey.databasePath, folder / "away.mdb");
    table->Edit();
    table->SetField("b", "9");
    EXPECT_THROW(table->Update(), RunTimeFailure);
    EXPECT_THROW(table->MoveFirst(), RunTimeFailure);
    EXPECT_THAT(RawDatabase(folder / "away.mdb").Run("SELECT b FROM tar_vex"), ElementsAre("", ""));
}

TEST_F(AtRestTest, ALookUpGoesToTheFileThatIsInPlace)
{
    const std::string backup = FileBytes(survey.databasePath);
    const auto table = Table();
    WriteFile(folder / "new.mdb", backup);
    RawDatabase(folder / "new.mdb").Run("UPDATE tar_vex SET b = 'new'");
    std::filesystem::rename(folder / "new.mdb", survey.databasePath);
    table->SetFilter("[tubo] = 'T1  '");
    EXPECT_EQ(table->OpenRecordset()->Fields("b"), "new");
}

TEST_F(AtRestTest, ALogThatAnotherProgramHasOpenIsLeftToIt)
{
    RawDatabase raw(survey.databasePath);
    raw.Run("PRAGMA journal_mode = WAL");
    raw.Run("UPDATE tar_vex SET tubo = 'LIVE'");
    EXPECT_THAT(Tubes(), ElementsAre("LIVE", "LIVE"));
    raw.Run("UPDATE tar_vex SET tubo = 'MORE'");
    EXPECT_THAT(Tubes(), ElementsAre("MORE", "MORE"));
}

} // namespace
} // namespace tarvex::tests
