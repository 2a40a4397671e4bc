#pragma once

#include "link/line.h"

#include <string_view>

namespace tarvex
{

/// What the operator sees of an operation on the line and is asked about it. A dialog has no wait
/// indicator; showing and hiding then only let events run.
class OperatorView
{
public:
    /// Uses the parts of `line`, which must outlive it. Shows nothing yet.
    explicit OperatorView(const Line& line);

    /// Shows the wait indicator, and lets it be seen.
    void ShowWaitIndicator();

    /// Hides the wait indicator, and lets that be seen.
    void HideWaitIndicator();

    /// A question with OK and Cancel: true for OK.
    [[nodiscard]] bool Confirms(std::string_view question);

    /// The box "Attention: TAR--VEX not connected".
    void ReportNotConnected();

private:
    EventPump& pump_;
    MessageBoxes& messages_;
    WaitIndicator* indicator_;
};

} // namespace tarvex
