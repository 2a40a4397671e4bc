#pragma once

#include "core/message_boxes.h"

namespace tarvex::panel
{

/// Passes boxes on and remembers that there was one.
class NotedBoxes final : public MessageBoxes
{
public:
    explicit NotedBoxes(MessageBoxes& messages) : messages_(messages) {}

    void Critical(std::string_view text, std::string_view title) override
    {
        shown = true;
        messages_.Critical(text, title);
    }
    bool AskOkCancel(std::string_view text) override
    {
        shown = true;
        return messages_.AskOkCancel(text);
    }

    bool shown = false;

private:
    MessageBoxes& messages_;
};

} // namespace tarvex::panel
