#include "blocks/read_block.h"
#include "download/block_download.h"
#include "report_checks.h"
#include "support/logic_test.h"
#include "support/survey.h"

namespace tarvex::tests
{
namespace
{

constexpr Milliseconds kPatience = 30'000;
constexpr int kHeaderPages = 10;

enum class Outcome {
    Finishes,     ///< silently, at rest
    NotConnected, ///< with the box, at rest
    WaitsForEver, ///< until the program ends, port open and indicator shown
    Ends          ///< with the program, at once
};

/// One way in which the line fails at its n-th wake or its n-th read frame.
struct Fault {
    std::string name;
    bool atRead; ///< counted in read frames, else in wakes
    std::function<void(TestProgram&, int)> set;
    Outcome atFirst;
    Outcome later;
};

void AnswerWakeWith(TestProgram& program, int n, const std::string& answer)
{
    program.unit.answerWake = [n, answer](int wake) { return wake == n ? answer : "!"; };
}

void AnswerReadWith(TestProgram& program, int n,
                    const std::function<std::string(const std::string&)>& answer)
{
    program.unit.answerRead = [n, answer](int read, const std::string& reply) {
        return read == n ? answer(reply) : reply;
    };
}

/// Lets `event` happen in the wait after the n-th wake or read frame, before the answer.
void DuringWait(TestProgram& program, bool atRead, int n, const std::function<void()>& event)
{
    if (atRead) {
        AnswerReadWith(program, n, [&program, event](const std::string& reply) {
            program.world.After(0, event);
            return reply;
        });
    } else {
        program.unit.onWake = [&program, n, event](int wake) {
            if (wake == n) program.world.After(0, event);
        };
    }
}

std::function<void(TestProgram&, int)> PortClosed(bool atRead)
{
    return [atRead](TestProgram& program, int n) {
        DuringWait(program, atRead, n, [&program] { program.port.Close(); });
    };
}

std::function<void(TestProgram&, int)> AdapterPulled(bool atRead)
{
    return [atRead](TestProgram& program, int n) {
        DuringWait(program, atRead, n, [&program] { program.port.vanished = true; });
    };
}

std::function<void(TestProgram&, int)> ProgramClosed(bool atRead)
{
    return [atRead](TestProgram& program, int n) {
        DuringWait(program, atRead, n, [&program] { program.world.end.End(0); });
    };
}

std::vector<Fault> Faults()
{
    using enum Outcome;
    return {
        {"SilentFromWake", false,
         [](TestProgram& program, int n) {
             program.unit.answerWake = [n](int wake) { return wake < n ? "!" : ""; };
         },
         NotConnected, WaitsForEver},
        {"WrongAnswer", false, [](TestProgram& p, int n) { AnswerWakeWith(p, n, "?"); }, Finishes,
         Finishes},
        {"DoubledAnswer", false, [](TestProgram& p, int n) { AnswerWakeWith(p, n, "!!"); },
         Finishes, Finishes},
        {"LongAnswer", false,
         [](TestProgram& p, int n) { AnswerWakeWith(p, n, "!" + std::string(2000, 'x')); },
         Finishes, Finishes},
        {"PortClosedInWake", false, PortClosed(false), Finishes, Finishes},
        {"AdapterPulledInWake", false, AdapterPulled(false), NotConnected, WaitsForEver},
        {"ProgramClosedInWake", false, ProgramClosed(false), Ends, Ends},
        {"SilentPage", true,
         [](TestProgram& p, int n) { AnswerReadWith(p, n, [](const std::string&) { return ""; }); },
         WaitsForEver, WaitsForEver},
        {"ShortPage", true,
         [](TestProgram& p, int n) {
             AnswerReadWith(p, n, [](const std::string& reply) { return reply.substr(0, 49); });
         },
         WaitsForEver, WaitsForEver},
        {"LongPage", true,
         [](TestProgram& p, int n) {
             AnswerReadWith(p, n, [](const std::string& reply) { return reply + reply; });
         },
         Finishes, Finishes},
        {"GarbledPage", true,
         [](TestProgram& p, int n) {
             AnswerReadWith(p, n, [](const std::string&) { return std::string(50, '?'); });
         },
         Finishes, Finishes},
        {"PortClosedInReply", true, PortClosed(true), Finishes, Finishes},
        {"AdapterPulledInReply", true, AdapterPulled(true), WaitsForEver, WaitsForEver},
        {"ProgramClosedInReply", true, ProgramClosed(true), Ends, Ends},
    };
}

class FaultSweepTest : public ::testing::TestWithParam<Fault>
{
protected:
    /// One run of `command` with the fault at its n-th place. True when it came to that place.
    bool RunWithFaultAt(int n, TestProgram& program,
                        const std::function<void(DeviceLink&)>& command)
    {
        outcome = n == 1 ? GetParam().atFirst : GetParam().later;
        GetParam().set(program, n);
        if (outcome == Outcome::NotConnected)
            program.boxes.Expect("Attention: TAR--VEX not connected");
        program.world.EndProgramAt(kPatience);
        const std::string table = FileBytes(program.state.headerFilePath);

        program.ClickLink(command);

        const bool reached = (GetParam().atRead ? program.unit.reads : program.unit.wakes) >= n;
        if (!reached) outcome = Outcome::Finishes;
        ExpectOutcome(program);
        EXPECT_EQ(FileBytes(program.state.headerFilePath), table);
        EXPECT_EQ(program.state.blockHeader, DefaultHeader(0));
        EXPECT_FALSE(program.unhandledFailure.has_value());
        return reached;
    }

    void ExpectOutcome(const TestProgram& program) const
    {
        const bool comesBack = outcome == Outcome::Finishes || outcome == Outcome::NotConnected;
        EXPECT_EQ(program.finishedHandlers, comesBack ? 1 : 0);
        EXPECT_EQ(program.world.Ended(), !comesBack);
        EXPECT_EQ(program.LineAtRest(), comesBack);
        EXPECT_EQ(program.port.IsOpen(), !comesBack);
        EXPECT_EQ(program.panel.waitIndicator.label.Visible(), !comesBack);
        EXPECT_EQ(program.panel.waitIndicator.ground.Visible(), !comesBack);
        EXPECT_EQ(program.boxes.shown, outcome == Outcome::NotConnected ? 1 : 0);
        if (outcome == Outcome::WaitsForEver) {
            EXPECT_EQ(program.world.Now(), kPatience);
        }
        if (outcome == Outcome::Ends) {
            EXPECT_LT(program.world.Now(), 100) << "it went on after the end";
        }
        for (const std::string& sent : program.port.sent)
            EXPECT_TRUE(sent == "}" || (sent.size() == 7 && sent[0] == 'a' && sent[6] == '\r'));
    }

    Outcome outcome = Outcome::Finishes;
};

TEST_P(FaultSweepTest, ReadBlockKeepsItsPromises)
{
    const std::vector<std::string> whole = {
        "CLIENT0 ", "SITE0000", "T12 ",   "001",     "5",       "0",       "2",       "+000",
        "03",       "161126",   "093015", "+1.0000", "+0.0000", "+1.0000", "+0.0000", "0"};
    bool reached = true;
    for (int n = 1; reached; ++n) {
        SCOPED_TRACE(n);
        TestProgram program;
        SetSmallSurvey(program.unit, 0);
        const std::vector<std::string> before = program.HeaderBoxTexts();
        reached = RunWithFaultAt(n, program, [&](DeviceLink& link) {
            ReadBlock(program.panel, program.state, link, program.view);
        });
        const std::vector<std::string> after = program.HeaderBoxTexts();
        if (outcome != Outcome::Finishes) {
            EXPECT_EQ(after, before);
        } else if (!reached) {
            EXPECT_EQ(after, whole);
        } else {
            for (std::size_t box = 0; box < after.size(); ++box)
                EXPECT_TRUE(after[box].empty() || after[box] == whole[box]) << after[box];
        }
        EXPECT_THAT(NamesIn(program.folder.Path()), ::testing::ElementsAre("intestazione"));
        ASSERT_LE(n, kHeaderPages + 1);
    }
}

TEST_P(FaultSweepTest, DownloadKeepsItsPromises)
{
    bool reached = true;
    for (int n = 1; reached; ++n) {
        SCOPED_TRACE(n);
        TestProgram program;
        SetSmallSurvey(program.unit, 0);
        const std::filesystem::path reports = program.folder / "reports";
        std::filesystem::create_directory(reports);
        program.state.reportFolder = reports;
        program.panel.downloadButton.Enable();
        reached = RunWithFaultAt(n, program, [&](DeviceLink& link) {
            BlockDownload(program.panel, program.state, link, program.view, program.world);
        });
        const bool finished = outcome == Outcome::Finishes;
        const bool headerRead = finished || (n > kHeaderPages && outcome != Outcome::NotConnected);
        ExpectSoundReports(reports);
        EXPECT_EQ(NamesIn(reports).size(), finished ? 3U : headerRead ? 2U : 0U);
        EXPECT_EQ(FileEndingIn(reports, "-num.dat").empty(), !finished);
        EXPECT_EQ(program.panel.downloadButton.Enabled(), finished);
        if (headerRead && !finished) {
            EXPECT_EQ(RowsIn(reports), static_cast<std::size_t>(n - kHeaderPages - 1));
        }
        if (!reached) {
            EXPECT_EQ(RowsIn(reports), 3U);
            EXPECT_EQ(FileBytes(reports / (kSmallSurvey + "dat.dat")), SmallSurveyHeadReport());
        }
        EXPECT_THAT(NamesIn(program.folder.Path()),
                    ::testing::ElementsAre("intestazione", "reports"));
        ASSERT_LE(n, kHeaderPages + 4);
    }
}

INSTANTIATE_TEST_SUITE_P(Every, FaultSweepTest, ::testing::ValuesIn(Faults()), RowName());

} // namespace
} // namespace tarvex::tests
