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
    virtual ~FailureScope();

    /// True when the innermost living scope skips failing steps. Without any scope failures go up.
    static bool Skips();

    /// Tells the innermost scope that a step has been skipped.
    static void NoteSkipped();

protected:
    FailureScope();

private:
    virtual bool SkipsSteps() const = 0;
    virtual void StepSkipped() {}

    FailureScope* outer_;
};

/// A failing step is not reported, and the next step runs. A handler that works under this rule
/// says so in its first line.
class SkipOnError final : public FailureScope
{
public:
    SkipOnError() = default;

    /// Also sets `failed` to true at every skipped step.
    explicit SkipOnError(bool& failed) : failed_(&failed) {}

private:
    bool SkipsSteps() const override { return true; }
    void StepSkipped() override
    {
        if (failed_ != nullptr) *failed_ = true;
    }

    bool* failed_ = nullptr;
};

/// A failing step ends the handler, and with it the program. The rule of a handler that names none.
class LetFailuresGoUp final : public FailureScope
{
private:
    bool SkipsSteps() const override { return false; }
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

} // namespace tarvex
