#pragma once

#include "core/message_boxes.h"

namespace tarvex::panel
{

/// Passes boxes on and remembers that there was one.
class NotedBoxes final : public MessageBoxes
{
public:
    explicit NotedBoxes(MessageBoxes& boxes) : boxes_(boxes) {}

    void Critical(std::string_view text, std::string_view title) override
    {
        shown = true;
        boxes_.Critical(text, title);
    }
    bool AskOkCancel(std::string_view text) override
    {
        shown = true;
        return boxes_.AskOkCancel(text);
    }

    bool shown = false;

private:
    MessageBoxes& boxes_;
};

} // namespace tarvex::panel
