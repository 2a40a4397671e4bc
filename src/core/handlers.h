#pragma once

#include "core/message_boxes.h"
#include "core/program_end.h"

#include <functional>

namespace tarvex
{

/// The one door through which events run their handlers, nested ones too.
class Handlers
{
public:
    Handlers(ProgramEnd& end, MessageBoxes& messages) : end_(end), messages_(messages) {}

    /// How many handlers may be under way inside each other; the stack holds several times as many.
    static constexpr int kDeepest = 100;

    /// Runs one handler with a rule of its own: failures go up unless it says otherwise. One that
    /// comes out, or any standard exception, shows the box "Run-time error: " with its reason and
    /// ends the program with status 1. Nothing is raised to the caller, and nothing runs after the
    /// end or inside the deepest handler allowed.
    void Run(const std::function<void()>& handler);

private:
    void RunShowingFailure(const std::function<void()>& handler);

    ProgramEnd& end_;
    MessageBoxes& messages_;
    int underWay_ = 0;
};

} // namespace tarvex
