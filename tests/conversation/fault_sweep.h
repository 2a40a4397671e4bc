#pragma once

#include "support/test_program.h"

#include <map>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// What can go wrong on the line: with the answer to a wake, or with the reply to the read frame
/// that follows it.
enum class Fault {
    Silent,        ///< the unit answers no wake from that one on
    AdapterPulled, ///< the port stays open and dead
    WrongAnswer,   ///< "?" to that wake alone
    DoubledAnswer, ///< "!!" to that wake alone
    LongAnswer,    ///< "!" and 49 bytes more to that wake alone
    PortClosed,    ///< another command closes the port under that wake
    PortGone,      ///< the port cannot be opened from the start

    FloodedAnswer,         ///< "!" and 2000 bytes more to that wake alone
    PortClosedUnderAnswer, ///< the answer is on its way when the port closes
    ProgramEnds,           ///< while that wake waits
    SilentReply,
    ShortReply, ///< 49 bytes of the 50
    LongReply,  ///< the whole page twice
    GarbledReply,
    PortClosedInReply,
    AdapterPulledInReply,
    ProgramEndsInReply
};

/// What every command is swept with.
inline constexpr Fault kFaults[] = {Fault::Silent,        Fault::AdapterPulled, Fault::WrongAnswer,
                                    Fault::DoubledAnswer, Fault::LongAnswer,    Fault::PortClosed};

/// What a command that reads is swept with besides.
inline constexpr Fault kReadFaults[] = {
    Fault::FloodedAnswer, Fault::ProgramEnds,          Fault::SilentReply,       Fault::ShortReply,
    Fault::LongReply,     Fault::AdapterPulledInReply, Fault::ProgramEndsInReply};

/// And a command that reads one block, for these reach into the next one.
inline constexpr Fault kOneBlockFaults[] = {Fault::GarbledReply, Fault::PortClosedUnderAnswer,
                                            Fault::PortClosedInReply};

/// A fault, and the wake (from 1) at which it strikes, or in the reply after which.
struct FaultAt {
    Fault fault;
    int wake;

    /// The wake gets no answer at all.
    bool RunsOut() const { return fault == Fault::Silent || fault == Fault::AdapterPulled; }

    /// The program ends.
    bool EndsProgram() const;

    /// A command that reads does not come past that wake or its reply.
    bool StopsRead() const;

    /// True when the answer to wake `number` is none that a frame follows.
    bool Loses(int number) const;

    /// True when the page asked for after wake `number` does not come.
    bool LosesPage(int number) const;

    /// True when not even a wake goes out after wake `number`, on the port as it is.
    bool IsTheLastOut(int number) const;

    /// True when nothing goes out after the read frame of wake `number`.
    bool IsTheLastRead(int number) const;
};

/// Everything that a command can leave behind.
struct EndState {
    std::vector<std::string> sent;
    bool notConnected = false; ///< the box came
    bool finished = true;      ///< false: it waits until the program ends
    bool portOpen = false;
    bool indicator = false;
    double currentBlock = 3;
    std::string text2 = "07";
    std::string header;      ///< the eleven boxes as one text
    std::string calibration; ///< the five hidden boxes as one text
    std::string readAddress; ///< the three pieces as one text
    std::vector<std::string> table;
    std::map<std::string, std::string> reports; ///< bytes by name
    bool downloadEnabled = true;
};

/// What every swept command starts from: the panel shows record 3 of the own table with another
/// client, block 7 is typed in, and the unit's thirty headers are its own.
EndState StartState();

/// The record on the panel at the start.
std::string TypedRecord();

/// One command under sweep.
struct SweptCommand {
    const char* name;
    void (*press)(TestProgram& program);
    const char* question; ///< answered with OK; null for a command that asks nothing
    int wakes;            ///< of a run without a fault
    EndState (*expected)(const FaultAt& at);
    bool leavesRecord = false; ///< the record that the program has open stays as it is
};

void PrintTo(const SweptCommand& command, std::ostream* out);

/// Runs the command with the fault and compares what it leaves with what is expected. False when
/// the fault did not strike, for the run had fewer wakes.
bool RunAndCompare(const SweptCommand& command, const FaultAt& at);

/// What goes out of those frames, each after a wake of its own.
std::vector<std::string> SentUnder(const FaultAt& at, const std::vector<std::string>& frames);

extern const SweptCommand kSetBlock;
extern const SweptCommand kSetAll;
extern const SweptCommand kResetBlock;
extern const SweptCommand kTotalReset;
extern const SweptCommand kResetGainZero;
extern const SweptCommand kReadBlock;
extern const SweptCommand kReadAllBlocks;
extern const SweptCommand kBlockDownload;

} // namespace tarvex::tests
