#pragma once

#include "unit/reply.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::unit
{

/// The moments of a conversation at which the unit can go wrong, each counted from 1 since start.
enum class Moment {
    Woken,     ///< a "}" was heard; the answer is "!"
    PageRead,  ///< a read frame was heard; the answer is a page of 50 characters
    ClockRead, ///< the clock was asked for; the answer has 14 characters
    Written,   ///< a frame without an answer was heard: C, D, G, b or c
};

/// What goes wrong.
enum class Trouble {
    Silent,  ///< no answer
    Wrong,   ///< `text` instead of the answer
    Double,  ///< the answer twice
    Late,    ///< the answer `amount` milliseconds late
    Short,   ///< only the first `amount` characters of the answer
    Long,    ///< `amount` more characters after the answer
    Garbled, ///< no hexadecimal digits in the pair of byte `amount` (from 0), or in all pairs
    Lower,   ///< digits in lower case
    Shifted, ///< a stray character before the answer
    Stray,   ///< a stray byte `amount` milliseconds after the answer, or after the frame
    HangUp,  ///< the line taken away after `amount` characters of the answer
};

/// Milliseconds of Late without an amount: past the manager's patience for a wake, which is 600 ms.
inline constexpr std::size_t kUsualDelay = 700;
/// Milliseconds of Stray without an amount: in the middle of the manager's shortest settling.
inline constexpr std::size_t kUsualStrayDelay = 20;
/// Between the last characters and a hang-up in mid-answer.
inline constexpr Time kHangUpPause{20'000};

/// One fault.
struct Fault {
    Trouble trouble = Trouble::Silent;
    Moment moment = Moment::Woken;
    int number = 1;                         ///< at which of these moments, from 1
    bool andLater = false;                  ///< also at each later one
    std::optional<std::size_t> amount = {}; ///< meaning by trouble; its default when not given
    std::string text = {};                  ///< of Wrong only

    bool operator==(const Fault&) const = default;
};

/// A fault from its text: TROUBLE@MOMENTn, then "+" when it goes on from there, then ":" and an
/// amount or a text where the trouble takes one.
///
///     silent@wake3+      nothing is answered from the third wake on
///     late@wake2:700     the second answer comes 700 ms late
///     wrong@wake1:?\r    "?" and CR instead of "!"; \r, \n, \\ and \xHH stand for bytes
///     hangup@page4:20    the line goes away after 20 characters of the fourth page
///
/// Troubles are silent, wrong, double, late, short, long, garbled, lower, shifted, stray and
/// hangup; moments wake, page, clock and write. A text of another form, or a trouble that its
/// moment cannot have, throws std::invalid_argument with the reason.
Fault ParseFault(std::string_view text);

/// What the unit does at the `count`-th `moment` instead of just giving `answer` (empty at a
/// Write), with every fault that applies, in their order.
std::vector<Reply> ApplyFaults(const std::vector<Fault>& faults, Moment moment, int count,
                               std::string_view answer);

} // namespace tarvex::unit
