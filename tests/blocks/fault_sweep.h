#pragma once

#include "support/test_program.h"

#include <map>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// What can go wrong on the line.
enum class Fault {
    Silent,        ///< the unit answers no wake from that one on
    AdapterPulled, ///< the port stays open and dead
    WrongAnswer,   ///< "?" to that wake alone
    DoubledAnswer, ///< "!!" to that wake alone
    LongAnswer,    ///< "!" and 49 bytes more to that wake alone
    PortClosed,    ///< another command closes the port under that wake
    PortGone       ///< the port cannot be opened from the start
};

inline constexpr Fault kFaults[] = {Fault::Silent,        Fault::AdapterPulled, Fault::WrongAnswer,
                                    Fault::DoubledAnswer, Fault::LongAnswer,    Fault::PortClosed,
                                    Fault::PortGone};

/// A fault, and the wake (from 1) at which it strikes.
struct FaultAt {
    Fault fault;
    int wake;

    /// The wake gets no answer at all.
    bool RunsOut() const { return fault == Fault::Silent || fault == Fault::AdapterPulled; }

    /// True when the answer to wake `number` is none that a frame follows.
    bool Loses(int number) const;

    /// True when not even a wake goes out after wake `number`, on the port as it is.
    bool IsTheLastOut(int number) const;
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
