#include "database/read_headers.h"
#include "database/survey_test.h"
#include "platform/sqlite/raw_database.h"

#include <array>
#include <chrono>
#include <set>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using namespace std::chrono_literals;

/// Another program works on the table at the same moment.
class TwoProgramsTest : public SurveyTest
{
protected:
    BlockHeader Tube(const std::string& client, int number)
    {
        BlockHeader header = DamHeader("00", "160926  ", "093015  ");
        header.cliente = client;
        header.tubo = std::to_string(number);
        return header;
    }

    /// Runs `work` in a program of its own, which begins when `gate` is closed.
    pid_t Start(const std::array<int, 2>& gate, const std::function<void()>& work)
    {
        const pid_t program = ::fork();
        if (program != 0) return program;
        ::close(gate[1]);
        char byte = 0;
        while (::read(gate[0], &byte, 1) > 0)
            continue;
        work();
        ::_exit(HasFailure() ? 1 : 0);
    }

    static void Await(pid_t program)
    {
        int status = 0;
        ASSERT_EQ(::waitpid(program, &status, 0), program);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }

    /// Read Headers in two programs at once: fifteen tubes are the same in both, fifteen their own.
    void ReadInBoth(const std::string& shared)
    {
        std::array<int, 2> gate{};
        ASSERT_EQ(::pipe(gate.data()), 0);
        std::vector<pid_t> programs;
        for (const char* const own : {"A", "B"}) {
            programs.push_back(Start(gate, [&] {
                state.headerFilePath = folder / (std::string("intestazione-") + own);
                for (int record = 1; record <= kBlockCount; ++record)
                    PutHeader(record, Tube(record <= 15 ? shared : shared + own, record));
                Read();
            }));
        }
        ::close(gate[0]);
        ::close(gate[1]);
        for (const pid_t program : programs)
            Await(program);
    }

    RawDatabase raw{survey.databasePath};
};

TEST_F(TwoProgramsTest, ReadHeadersInBothFilesEveryTubeOnce)
{
    for (int run = 1; run <= 100; ++run)
        ReadInBoth("R" + std::to_string(run));
    std::multiset<std::string> tubes;
    for (SurveyRow& row : Rows())
        tubes.insert(TextOf(row["cliente"]) + TextOf(row["tubo"]) + TextOf(row["l0"]));
    EXPECT_EQ(tubes.size(), 100U * 45);
    EXPECT_EQ(std::set<std::string>(tubes.begin(), tubes.end()).size(), 100U * 45);
}

TEST_F(TwoProgramsTest, ALockIsWaitedFor)
{
    AddRow({{"b", "5"}});
    const auto table = backend->OpenTable(survey.databasePath);
    table->Edit();
    table->SetField("b", "6");
    raw.Run("BEGIN IMMEDIATE");
    std::thread other([&] {
        std::this_thread::sleep_for(100ms);
        raw.Run("COMMIT");
    });
    EXPECT_NO_THROW(table->Update());
    other.join();
    EXPECT_EQ(RowAt(0).at("b"), "6");
}

TEST_F(TwoProgramsTest, AMarkTypedWhileABoxIsOpenIsTransferred)
{
    AddRow({{"b", "30"}});
    SurveyRow row = TubeRow(DamHeader("00", "", ""));
    AddRow(row);
    boxes.Expect("Attention: Block no. is incorect",
                 [&] { raw.Run("UPDATE tar_vex SET b = '4' WHERE cliente IS NOT NULL"); });
    Write();
    EXPECT_EQ(StoredHeader(4).cliente.Text(), "ROSSI   ");
    EXPECT_EQ(RowAt(1).at("b"), "");
}

TEST_F(TwoProgramsTest, AMarkTypedAheadOfTheWalkIntoAnEmptyOneIsTransferred)
{
    for (const char* mark : {"", "30", "", ""})
        AddRow({{"b", mark}});
    SurveyRow row = TubeRow(DamHeader("00", "", ""));
    row["b"] = "";
    AddRow(row);
    boxes.Expect("Attention: Block no. is incorect",
                 [&] { raw.Run("UPDATE tar_vex SET b = '4' WHERE cliente IS NOT NULL"); });
    Write();
    EXPECT_EQ(StoredHeader(4).cliente.Text(), "ROSSI   ");
    EXPECT_EQ(RowAt(4).at("b"), "");
}

TEST_F(TwoProgramsTest, AWalkOverMarksMeetsThoseThatAreThereWhenItMoves)
{
    for (const SurveyRow& row : {SurveyRow{{"b", ""}}, SurveyRow{{"b", "5"}}, SurveyRow{{"b", ""}},
                                 SurveyRow{}, SurveyRow{{"b", ""}}, SurveyRow{{"b", ""}}})
        AddRow(row);
    const auto table = backend->OpenTable(survey.databasePath);
    table->PassOverEmptyMarks();
    table->MoveFirst();
    EXPECT_EQ(table->Fields("b"), "5");
    table->MoveNext();
    EXPECT_TRUE(table->Fields("b").IsNull());
    raw.Run("UPDATE tar_vex SET b = '7' WHERE rowid = 5");
    table->MoveNext();
    EXPECT_EQ(table->Fields("b"), "7");
    raw.Run("UPDATE tar_vex SET b = '8' WHERE rowid = 5");
    table->MoveNext();
    EXPECT_TRUE(table->Eof());
}

TEST_F(TwoProgramsTest, TheMarkThatCountsIsTheOneThatItsRowHasWhenItBecomesCurrent)
{
    for (const SurveyRow& row : {SurveyRow{}, SurveyRow{}, SurveyRow{{"b", "5"}}})
        AddRow(row);
    const auto table = backend->OpenTable(survey.databasePath);
    raw.Run("UPDATE tar_vex SET b = '6' WHERE rowid = 2");
    std::this_thread::sleep_for(2ms); // so long may a row without a mark be taken for one
    table->MoveNext();
    EXPECT_EQ(table->Fields("b"), "6");
    raw.Run("UPDATE tar_vex SET b = '7' WHERE rowid = 3");
    table->MoveNext();
    EXPECT_EQ(table->Fields("b"), "7");
}

TEST_F(TwoProgramsTest, AMarkTakenAwayBeforeItsRowBecomesCurrentIsNotTransferred)
{
    AddRow({});
    SurveyRow row = TubeRow(DamHeader("00", "", ""));
    row["b"] = "4";
    AddRow(row);
    engine.fails = [this](int, const std::string& call) {
        if (call == "MoveNext") raw.Run("UPDATE tar_vex SET b = ''");
        return false;
    };
    const std::string before = FileBytes(state.headerFilePath);
    Write();
    EXPECT_EQ(FileBytes(state.headerFilePath), before);
}

TEST_F(TwoProgramsTest, AMarkTypedIntoTheRowThatIsHandledStays)
{
    AddRow({{"b", "30"}});
    boxes.Expect("Attention: Block no. is incorect",
                 [&] { raw.Run("UPDATE tar_vex SET b = '4'"); });
    Write();
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "4"}}));
}

TEST_F(TwoProgramsTest, ARowAddedAndOneTakenAwayWhileABoxIsOpenAreSeen)
{
    AddRow({{"b", "30"}});
    AddRow({{"b", "30"}});
    SurveyRow row = TubeRow(DamHeader("00", "", ""));
    row["b"] = "4";
    boxes.Expect("Attention: Block no. is incorect", [&] {
        raw.Run("DELETE FROM tar_vex WHERE rowid = 2");
        AddRow(row);
    });
    Write();
    EXPECT_EQ(StoredHeader(4).cliente.Text(), "ROSSI   ");
    EXPECT_EQ(Rows().size(), 2U);
}

TEST_F(TwoProgramsTest, WhatOthersWriteWhileTheLimitBoxIsOpenCounts)
{
    BlockHeader header = DamHeader("26", "160926  ", "093015  ");
    PutHeader(1, header);
    AddRow(TubeRow(header));
    boxes.Expect("ATTENTION: Already there were executed 25 readings ",
                 [&] { raw.Run("UPDATE tar_vex SET l24 = 'another reading'"); });
    Read();
    EXPECT_EQ(RowAt(0).at("l25"), "160926  093015  ");
    EXPECT_EQ(RowAt(0).at("nlet"), 25.0);
}

} // namespace
} // namespace tarvex::tests
