#include "database/survey_test.h"
#include "platform/sqlite/raw_database.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

class DurabilityTest : public SurveyTest
{
protected:
    /// Adds rows and changes them for ever, and sends one byte for each row that is done.
    [[noreturn]] void WriteForEver(int acknowledge)
    {
        try {
            const auto table = backend->OpenTable(survey.databasePath);
            table->SetFilter("");
            for (int number = 1;; ++number) {
                AddAndChange(*table, std::to_string(number));
                if (::write(acknowledge, "x", 1) != 1) ::_exit(1);
            }
        } catch (const RunTimeFailure&) {
        }
        ::_exit(2);
    }

    /// One update makes the row, a second one sets all its slots to one text.
    void AddAndChange(RecordSet& table, const std::string& text)
    {
        table.AddNew();
        table.SetField("cliente", text);
        table.Update();
        table.SetFilter("[cliente] = '" + text + "'");
        const auto row = table.OpenRecordset();
        row->Edit();
        for (int slot = 0; slot < kSlotCount; ++slot)
            row->SetField(SlotName(slot), text);
        row->Update();
    }

    /// Rows that a writer had acknowledged when it was killed, `delay` microseconds after the
    /// `acknowledged`-th.
    int KillWriter(int acknowledged, unsigned delay)
    {
        std::array<int, 2> pipe{};
        EXPECT_EQ(::pipe(pipe.data()), 0);
        const pid_t writer = ::fork();
        if (writer == 0) WriteForEver(pipe[1]);
        ::close(pipe[1]);

        int rows = 0;
        char byte = 0;
        while (rows < acknowledged && ::read(pipe[0], &byte, 1) == 1)
            ++rows;
        ::usleep(delay);
        ::kill(writer, SIGKILL);
        while (::read(pipe[0], &byte, 1) == 1)
            ++rows;
        ::close(pipe[0]);
        int status = 0;
        EXPECT_EQ(::waitpid(writer, &status, 0), writer);
        EXPECT_TRUE(WIFSIGNALED(status));
        return rows;
    }
};

TEST_F(DurabilityTest, AWriterKilledAtAnyMomentLeavesWholeRowsAndAllItHadDone)
{
    for (unsigned round = 0; round < 25; ++round) {
        std::filesystem::remove(survey.databasePath);
        std::filesystem::remove(folder / "tar_vex.mdb-journal");
        const int done = KillWriter(1 + static_cast<int>(round % 4), round * 173 % 2000);

        const auto rows = Rows();
        ASSERT_GE(static_cast<int>(rows.size()), done);
        EXPECT_LE(static_cast<int>(rows.size()), done + 1);
        for (int index = 0; index < static_cast<int>(rows.size()); ++index) {
            const SurveyRow& row = rows[static_cast<std::size_t>(index)];
            const std::string text = std::to_string(index + 1);
            const bool changed = row.size() == 1U + kSlotCount;
            EXPECT_TRUE(changed || (index >= done && row.size() == 1)) << row.size();
            for (const auto& [name, value] : row)
                EXPECT_EQ(value, text) << name;
        }
        EXPECT_THAT(RawDatabase(survey.databasePath).Run("PRAGMA integrity_check"),
                    ElementsAre("ok"));
    }
}

TEST_F(DurabilityTest, AProgramThatMadeTheTableAndWasKilledLeavesADatabase)
{
    for (unsigned round = 0; round < 25; ++round) {
        std::filesystem::remove(survey.databasePath);
        KillWriter(0, round * 211);
        AddRow({{"b", "5"}});
        EXPECT_EQ(Rows().back(), (SurveyRow{{"b", "5"}}));
    }
}

/// Write Headers over many rows, most of them with a Null mark.
class KilledWalkTest : public SurveyTest
{
protected:
    KilledWalkTest()
    {
        AddRow({});
        RawDatabase(survey.databasePath)
            .Run("INSERT INTO tar_vex (cliente, cantiere, tubo, [profondità], passo, guide, nord, "
                 "b) WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < "
                 "3000) SELECT 'ROSSI', 'DIGA', i, '0500', '1', '4', '+015', "
                 "iif(i % 500 = 0, i / 500, NULL) FROM n");
    }

    /// A row of the walk has been handled; `block` is that of its mark, 0 without one.
    struct Handled {
        bool done;
        int block;
    };

    std::vector<Handled> Walked()
    {
        std::vector<Handled> walked;
        for (const QString& row : RawDatabase(survey.databasePath)
                                      .Run("SELECT b IS '', rowid FROM tar_vex ORDER BY rowid")) {
            const int number = row.section('|', 1).toInt();
            walked.push_back({row.startsWith('1'), number % 500 == 0 ? number / 500 : 0});
        }
        return walked;
    }
};

TEST_F(KilledWalkTest, LeavesTheRowsBeforeItsMomentHandledAndThoseAfterItUntouched)
{
    const std::string before = FileBytes(survey.databasePath);
    for (useconds_t delay = 0; delay < 20'000; delay += 400) {
        WriteFile(survey.databasePath, before);
        std::filesystem::remove(folder / "tar_vex.mdb-journal");
        const pid_t walker = ::fork();
        if (walker == 0) {
            Write();
            ::_exit(0);
        }
        ::usleep(delay);
        ::kill(walker, SIGKILL);
        ASSERT_EQ(::waitpid(walker, nullptr, 0), walker);

        backend->OpenTable(survey.databasePath)->Close(); // takes in what was left beside it
        bool done = true;
        for (const Handled& row : Walked()) {
            EXPECT_TRUE(done || !row.done) << delay;
            done = row.done;
            if (done && row.block > 0) {
                EXPECT_EQ(StoredHeader(row.block).cliente.Text(), "ROSSI   ") << delay;
            }
        }
    }
}

TEST_F(KilledWalkTest, NeighboursShareACommitAndARowThatIsEmptyCostsNone)
{
    const auto commits = [&] {
        const std::string bytes = FileBytes(survey.databasePath);
        return static_cast<unsigned char>(bytes[26]) * 256 + static_cast<unsigned char>(bytes[27]);
    };
    const int before = commits();
    Write();
    EXPECT_EQ(commits() - before, 6 + 6); // the marks, and what lies before and between them
    Write();
    EXPECT_EQ(commits() - before, 6 + 6);
    for (const Handled& row : Walked())
        EXPECT_TRUE(row.done);
}

/// No file grows beyond that many bytes while it lives, as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(std::uintmax_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FullDisk()
    {
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &before_), 0);
        EXPECT_EQ(std::signal(SIGXFSZ, handler_), SIG_IGN);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

TEST_F(DurabilityTest, OnAFullDiskAnUpdateFailsAndTheRowsStay)
{
    AddRow({{"b", "5"}});
    const auto table = backend->OpenTable(survey.databasePath);
    table->Edit();
    table->SetField("cliente", std::string(100000, 'x'));
    {
        FullDisk disk(std::filesystem::file_size(survey.databasePath));
        EXPECT_THROW(table->Update(), RunTimeFailure);
        EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "5"}}));
    }
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "5"}}));
    table->Update();
    EXPECT_EQ(RowAt(0).at("cliente"), std::string(100000, 'x'));
    EXPECT_THAT(RawDatabase(survey.databasePath).Run("PRAGMA integrity_check"), ElementsAre("ok"));
}

TEST_F(DurabilityTest, OnAFullDiskNoDatabaseIsMadeAndOneIsLater)
{
    {
        FullDisk disk(1000);
        EXPECT_THROW(backend->OpenTable(survey.databasePath), RunTimeFailure);
    }
    AddRow({{"b", "5"}});
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "5"}}));
}

TEST_F(DurabilityTest, ReadHeadersOnAFullDiskGoesThroughToItsGrid)
{
    AddRow({{"b", "5"}});
    {
        FullDisk disk(std::filesystem::file_size(survey.databasePath));
        Read();
    }
    EXPECT_EQ(gridsShown, 1);
    EXPECT_THAT(RawDatabase(survey.databasePath).Run("PRAGMA integrity_check"), ElementsAre("ok"));
    Read();
    EXPECT_EQ(Rows().size(), 31U);
}

} // namespace
} // namespace tarvex::tests
