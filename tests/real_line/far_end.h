#pragma once

#include "unit/unit.h"

#include <functional>
#include <mutex>
#include <string>
#include <string_view>

namespace tarvex::tests
{

/// The simulated unit at the far end of a line, with its demonstration memory. It answers at once.
///
/// The line speaks with it on a thread of its own; everything here may be called from any thread.
class FarEnd
{
public:
    /// Called when the unit has heard something, before its answer goes out; may change the answer.
    using Act = std::function<void(std::string& answer)>;

    FarEnd();

    /// What the unit answers to those bytes.
    std::string Hear(std::string_view bytes);

    /// Has `act` done once, when that moment comes for the `number`-th time from now on.
    void At(unit::Moment moment, int number, Act act);

    /// All bytes that it has heard, also those that mean nothing.
    std::string Heard() const;

    unit::Memory Memory() const;

private:
    void ActOn(std::string& answer);

    mutable std::mutex mutex_;
    unit::Unit unit_;
    std::string heard_;
    unit::Moment moment_ = unit::Moment::Woken;
    int number_ = 0;
    Act act_;
};

} // namespace tarvex::tests
