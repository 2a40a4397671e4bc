#include "blocks/fault_sweep.h"

#include "blocks/block_commands.h"
#include "blocks/unit_headers.h"

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

void Arrange(TestProgram& program, const FaultAt& at)
{
    if (at.fault == Fault::PortGone) program.port.refused = {1};
    program.unit.onWake = [&program, at](int wake) {
        if (wake != at.wake) return;
        if (at.fault == Fault::AdapterPulled) program.port.vanished = true;
        if (at.fault == Fault::PortClosed) program.port.Close();
    };
    program.unit.answerWake = [at](int wake) -> std::string {
        if (at.fault == Fault::Silent && wake >= at.wake) return "";
        if (wake != at.wake) return "!";
        if (at.fault == Fault::WrongAnswer) return "?";
        if (at.fault == Fault::DoubledAnswer) return "!!";
        if (at.fault == Fault::PortClosed) return ""; // none comes late on a port opened again
        if (at.fault == Fault::LongAnswer) return "!" + std::string(49, '0');
        return "!";
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
void Compare(const EndState& expected, const EndState& left)
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

} // namespace

bool FaultAt::Loses(int number) const
{
    if (fault == Fault::PortGone) return true;
    return fault == Fault::PortClosed ? number >= wake : number == wake;
}

bool FaultAt::IsTheLastOut(int number) const
{
    return number == wake && (RunsOut() || fault == Fault::PortClosed);
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
    Prepare(program);
    Arrange(program, at);
    if (command.question != nullptr) program.boxes.ExpectQuestion(command.question, true);
    if (expected.notConnected) program.boxes.Expect(kNotConnected);
    program.world.EndProgramAt(kForEver);

    command.press(program);

    Compare(expected, Left(program));
    EXPECT_EQ(program.panel.waitIndicator.label.Visible(),
              program.panel.waitIndicator.ground.Visible());
    EXPECT_FALSE(program.unhandledFailure.has_value());
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
    }
    return sent;
}

} // namespace tarvex::tests
