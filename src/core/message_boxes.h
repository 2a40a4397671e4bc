#pragma once

#include <string_view>

namespace tarvex
{

/// The title of every box that has no other, and of the main form.
inline constexpr std::string_view kProgramTitle = "Tar Vex Manager";

/// The property by which a window marks the field that its next box speaks of: the box leaves it in
/// sight.
inline constexpr const char* kSpokenOf = "spokenOf";

/// The program's modal boxes. Each returns when the operator has answered it; one under which the
/// program ends raises ProgramEnded.
class MessageBoxes
{
public:
    virtual ~MessageBoxes() = default;

    /// A critical box with one OK button.
    virtual void Critical(std::string_view text, std::string_view title = kProgramTitle) = 0;

    /// A box with OK and Cancel and no icon: true for OK, false for every other way of closing it.
    virtual bool AskOkCancel(std::string_view text) = 0;
};

} // namespace tarvex
