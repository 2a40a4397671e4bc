#pragma once

#include "core/control_state.h"

#include <vector>

namespace tarvex
{

/// How far an operation on the line has come. An exchange is a wake, a frame, and the reply or the
/// fixed wait after it; it counts when it has ended as it should, so that one which the unit did
/// not take part in leaves a gap.
struct ExchangeCount {
    int expected = 0;     ///< exchanges of the whole operation; 0 for one that names no number
    int done = 0;         ///< may be more than expected: a nested command can make a loop repeat
    bool stalled = false; ///< the program waits for the unit, and nothing has come for long

    /// The part done, from 0 to 1.
    double Share() const;

    bool operator==(const ExchangeCount&) const = default;
};

/// What the operations on the line tell of how they go on; the watcher is called at every change,
/// at once. An operation that runs nested in a wait of another takes its place until it ends.
class ExchangeProgress : public Watched
{
public:
    /// That of the innermost operation under way. After the last one its own stays, no longer
    /// stalled, until the next begins.
    const ExchangeCount& Now() const { return shown_; }

    /// True while an operation is under way.
    bool UnderWay() const { return !underWay_.empty(); }

    /// An operation begins, of that many exchanges.
    void Begin(int exchanges);

    // What follows belongs to the innermost operation; there must be one.

    /// It turns out to have that many exchanges.
    void Expect(int exchanges);

    /// One more exchange has ended as it should.
    void CountExchange();
    /// Whether nothing has come for long, though the program waits for the unit.
    void SetStalled(bool stalled);

    /// It ends. The one around it has heard the unit meanwhile, and is not stalled.
    void End();

private:
    void Show(const ExchangeCount& count);

    std::vector<ExchangeCount> underWay_; // the innermost last
    ExchangeCount shown_;
};

} // namespace tarvex
