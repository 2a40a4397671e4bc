#pragma once

#include "core/message_boxes.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace tarvex::tests
{

/// Message boxes that answer themselves from a plan. A box that was not planned, or that was and
/// never came, fails the test.
class ScriptedBoxes : public MessageBoxes
{
public:
    ~ScriptedBoxes() override;

    /// Plans a critical box; `whileShown` runs while it is open.
    void Expect(std::string text, std::function<void()> whileShown = {});
    void ExpectTitled(std::string title, std::string text);

    /// Plans a question and its answer: true for OK.
    void ExpectQuestion(std::string text, bool answer, std::function<void()> whileShown = {});

    /// Boxes shown so far.
    int shown = 0;

    void Critical(std::string_view text, std::string_view title) override;
    bool AskOkCancel(std::string_view text) override;

private:
    struct Planned {
        bool question = false;
        std::string title;
        std::string text;
        bool answer = false;
        std::function<void()> whileShown;
    };
    bool Show(bool question, std::string_view text, std::string_view title);

    std::deque<Planned> planned_;
};

} // namespace tarvex::tests
