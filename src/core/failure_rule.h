#pragma once

#include "core/failure.h"

#include <utility>

namespace tarvex
{

/// What becomes of a failing step while this object lives. Scopes nest: a handler that runs inside
/// a wait of another brings its own, and the outer one is in force again when it returns.
class FailureScope
{
public:
    FailureScope(const FailureScope&) = delete;
    FailureScope& operator=(const FailureScope&) = delete;

    /// True when the innermost living scope skips failing steps. Without any scope failures go up.
    static bool Skips();

    /// Notes with the innermost scope that a step has been skipped.
    static void NoteSkipped();

protected:
    /// `failed`, unless null, becomes true at every skipped step.
    FailureScope(bool skips, bool* failed);
    ~FailureScope();

private:
    bool skips_;
    bool* failed_;
    FailureScope* outer_;
};

/// A failing step is not reported, and the next step runs. A handler that works under this rule
/// says so in its first line.
class SkipOnError final : public FailureScope
{
public:
    SkipOnError() : FailureScope(true, nullptr) {}

    /// Also sets `failed` to true at every skipped step.
    explicit SkipOnError(bool& failed) : FailureScope(true, &failed) {}
};

/// A failing step ends the handler, and with it the program. The rule of a handler that names none.
class LetFailuresGoUp final : public FailureScope
{
public:
    LetFailuresGoUp() : FailureScope(false, nullptr) {}
};

/// Runs one step by the rule in force: true when it ran, false when it failed and was skipped.
template <class Step>
bool Attempt(Step&& step)
{
    try {
        std::forward<Step>(step)();
        return true;
    } catch (const RunTimeFailure&) {
        if (!FailureScope::Skips()) throw;
        FailureScope::NoteSkipped();
        return false;
    }
}

/// What a test counts as; a test may also give a type of its own that knows.
constexpr bool CountsAsTrue(bool truth)
{
    return truth;
}

/// The test of an "if" or of a loop by the rule in force: a test that fails counts as passed, so
/// that the steps that it guards run, and a wait ends.
template <class Test>
bool Holds(Test&& test)
{
    bool passed = true;
    Attempt([&] { passed = CountsAsTrue(test()); });
    return passed;
}

} // namespace tarvex
