#include "conversation/fault_sweep.h"

#include "blocks/block_commands.h"
#include "blocks/unit_headers.h"
#include "conversation/report_checks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <ostream>

namespace tarvex::tests
{

namespace
{

constexpr Milliseconds kForEver = 900'000;

void Prepare(TestProgram& program)
{
    OpenOwnTableAt(program, 3);
    program.panel.header[Client].SetText("VERDI   ");
    program.panel.blockNumber.SetText("07");
    program.panel.downloadButton.Enable();
    FillUnit(program);
    program.state.reportFolder = program.folder / "reports";
    std::filesystem::create_directory(program.state.reportFolder);
}

std::string AnswerToTheStruckWake(Fault fault)
{
    if (fault == Fault::WrongAnswer) return "?";
    if (fault == Fault::DoubledAnswer) return "!!";
    if (fault == Fault::PortClosed) return ""; // none comes late on a port opened again
    if (fault == Fault::LongAnswer) return "!" + std::string(49, '0');
    if (fault == Fault::FloodedAnswer) return "!" + std::string(2000, 'x');
    return "!";
}

std::string StruckReply(Fault fault, const std::string& reply)
{
    if (fault == Fault::SilentReply) return "";
    if (fault == Fault::ShortReply) return reply.substr(0, reply.size() - 1);
    if (fault == Fault::LongReply) return reply + reply;
    if (fault == Fault::GarbledReply) return std::string(reply.size(), '?');
    return reply;
}

/// What happens to the port or the program before the answer to the wake.
void StrikeWake(TestProgram& program, Fault fault)
{
    if (fault == Fault::AdapterPulled) program.port.vanished = true;
    if (fault == Fault::PortClosed) program.port.Close();
    if (fault == Fault::PortClosedUnderAnswer)
        program.world.After(0, [&program] { program.port.Close(); });
    if (fault == Fault::ProgramEnds)
        program.world.After(0, [&program] { program.world.end.End(0); });
}

/// The same before the reply to the read frame.
void StrikeRead(TestProgram& program, Fault fault)
{
    program.world.After(0, [&program, fault] {
        if (fault == Fault::AdapterPulledInReply) program.port.vanished = true;
        if (fault == Fault::PortClosedInReply) program.port.Close();
        if (fault == Fault::ProgramEndsInReply) program.world.end.End(0);
    });
}

/// `struck` takes the moment of the fault.
void Arrange(TestProgram& program, const FaultAt& at, Milliseconds& struck)
{
    if (at.fault == Fault::PortGone) program.port.refused = {1};
    program.unit.onWake = [&program, &struck, at](int wake) {
        if (wake != at.wake) return;
        struck = program.world.Now();
        StrikeWake(program, at.fault);
    };
    program.unit.answerWake = [at](int wake) -> std::string {
        if (at.fault == Fault::Silent && wake >= at.wake) return "";
        return wake == at.wake ? AnswerToTheStruckWake(at.fault) : "!";
    };
    program.unit.answerRead = [&program, at](int, const std::string& reply) {
        if (program.unit.wakes != at.wake) return reply;
        StrikeRead(program, at.fault);
        return StruckReply(at.fault, reply);
    };
}

EndState Left(const TestProgram& program)
{
    EndState end;
    end.sent = program.port.sent;
    end.finished = program.finishedHandlers == 1;
    end.portOpen = program.port.IsOpen();
    end.indicator = program.panel.waitIndicator.label.Visible();
    end.currentBlock = program.state.currentBlock;
    end.text2 = program.panel.blockNumber.Text();
    end.header = HeaderOnPanel(program);
    end.calibration = CalibrationOnPanel(program);
    end.readAddress =
        program.state.readAddrBlock + program.state.readAddrBank + program.state.readAddrPage;
    end.table = StoredTable(program);
    for (const std::string& name : NamesIn(program.state.reportFolder))
        end.reports[name] = FileBytes(program.state.reportFolder / name);
    end.downloadEnabled = program.panel.downloadButton.Enabled();
    return end;
}

/// The box itself is expected of the boxes' script.
void ExpectEqual(const EndState& expected, const EndState& left)
{
    EXPECT_EQ(left.sent, expected.sent);
    EXPECT_EQ(left.finished, expected.finished);
    EXPECT_EQ(left.portOpen, expected.portOpen);
    EXPECT_EQ(left.indicator, expected.indicator);
    EXPECT_EQ(left.currentBlock, expected.currentBlock);
    EXPECT_EQ(left.text2, expected.text2);
    EXPECT_EQ(left.header, expected.header);
    EXPECT_EQ(left.calibration, expected.calibration);
    EXPECT_EQ(left.readAddress, expected.readAddress);
    EXPECT_EQ(left.table, expected.table);
    EXPECT_EQ(left.reports, expected.reports);
    EXPECT_EQ(left.downloadEnabled, expected.downloadEnabled);
}

/// A command that does not finish goes with the program, which ends at `moment`, and at once.
void ExpectEndOfProgram(const TestProgram& program, bool finished, Milliseconds moment)
{
    constexpr Milliseconds kAtOnce = 100;
    EXPECT_EQ(program.world.Ended(), !finished);
    if (finished) return;
    EXPECT_GE(program.world.Now(), moment);
    EXPECT_LT(program.world.Now(), moment + kAtOnce) << "it went on after the end";
}

} // namespace

bool FaultAt::EndsProgram() const
{
    return fault == Fault::ProgramEnds || fault == Fault::ProgramEndsInReply;
}

bool FaultAt::StopsRead() const
{
    return RunsOut() || EndsProgram() || fault == Fault::SilentReply ||
           fault == Fault::ShortReply || fault == Fault::AdapterPulledInReply;
}

bool FaultAt::Loses(int number) const
{
    if (fault == Fault::PortGone) return true;
    if (fault == Fault::PortClosedInReply) return number > wake;
    if (fault == Fault::PortClosed || fault == Fault::PortClosedUnderAnswer) return number >= wake;
    return fault < Fault::SilentReply && number == wake;
}

bool FaultAt::LosesPage(int number) const
{
    const bool struckReply = fault == Fault::GarbledReply || fault == Fault::PortClosedInReply;
    return Loses(number) || (struckReply && number == wake);
}

bool FaultAt::IsTheLastOut(int number) const
{
    return number == wake && (RunsOut() || fault == Fault::PortClosed ||
                              fault == Fault::PortClosedUnderAnswer || fault == Fault::ProgramEnds);
}

bool FaultAt::IsTheLastRead(int number) const
{
    return number == wake && (StopsRead() || fault == Fault::PortClosedInReply);
}

std::string TypedRecord()
{
    return WithClient("VERDI", OwnRecord(3));
}

EndState StartState()
{
    EndState start;
    start.header = HeaderPayload(TypedRecord());
    start.calibration = CalibrationPayload(OwnRecord(3));
    start.table = OwnTable();
    return start;
}

void PrintTo(const SweptCommand& command, std::ostream* out)
{
    *out << command.name;
}

bool RunAndCompare(const SweptCommand& command, const FaultAt& at)
{
    const EndState expected = command.expected(at);
    TestProgram program;
    Milliseconds struck = 0;
    Prepare(program);
    Arrange(program, at, struck);
    if (command.question != nullptr) program.boxes.ExpectQuestion(command.question, true);
    if (expected.notConnected) program.boxes.Expect(kNotConnected);
    program.world.EndProgramAt(kForEver);
    const BlockHeader record = program.state.blockHeader;

    command.press(program);

    ExpectEqual(expected, Left(program));
    ExpectEndOfProgram(program, expected.finished, at.EndsProgram() ? struck : kForEver);
    if (command.leavesRecord) {
        EXPECT_EQ(program.state.blockHeader, record);
    }
    EXPECT_EQ(program.panel.waitIndicator.label.Visible(),
              program.panel.waitIndicator.ground.Visible());
    EXPECT_FALSE(program.unhandledFailure.has_value());
    EXPECT_THAT(NamesIn(program.folder.Path()), ::testing::ElementsAre("intestazione", "reports"));
    ExpectSoundReports(program.state.reportFolder);
    return program.unit.wakes >= at.wake;
}

std::vector<std::string> SentUnder(const FaultAt& at, const std::vector<std::string>& frames)
{
    std::vector<std::string> sent;
    if (at.fault == Fault::PortGone) return sent;
    int wake = 0;
    for (const std::string& frame : frames) {
        ++wake;
        sent.emplace_back("}");
        if (at.IsTheLastOut(wake)) return sent;
        if (!at.Loses(wake)) sent.push_back(frame);
        if (at.IsTheLastRead(wake)) return sent;
    }
    return sent;
}

} // namespace tarvex::tests
