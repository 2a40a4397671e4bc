#pragma once

#include "core/message_boxes.h"
#include "core/program_end.h"

#include <QMessageBox>

#include <string_view>

namespace tarvex::platform
{

/// Message boxes on the toolkit: application-modal, plain text, over the active window. Each has
/// the object name "messageBox".
///
/// Other events run while a box is open. When one of them ends the program, the box closes, and the
/// call raises ProgramEnded, so that nothing more of the handler that asked runs.
class QtMessageBoxes : public MessageBoxes
{
public:
    explicit QtMessageBoxes(const ProgramEnd& end) : end_(end) {}

    void Critical(std::string_view text, std::string_view title = kProgramTitle) override;

    /// OK comes first and is the default; Escape and the window's close mean Cancel.
    bool AskOkCancel(std::string_view text) override;

private:
    int Show(QMessageBox* box);

    const ProgramEnd& end_;
};

} // namespace tarvex::platform
