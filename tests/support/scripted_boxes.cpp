#include "support/scripted_boxes.h"

#include <gtest/gtest.h>

#include <utility>

namespace tarvex::tests
{

ScriptedBoxes::~ScriptedBoxes()
{
    for (const Planned& box : planned_)
        ADD_FAILURE() << "this box never came: " << box.text;
}

void ScriptedBoxes::Expect(std::string text, std::function<void()> whileShown)
{
    planned_.push_back(
        {false, std::string(kProgramTitle), std::move(text), false, std::move(whileShown)});
}

void ScriptedBoxes::ExpectTitled(std::string title, std::string text)
{
    planned_.push_back({false, std::move(title), std::move(text), false, {}});
}

void ScriptedBoxes::ExpectQuestion(std::string text, bool answer, std::function<void()> whileShown)
{
    planned_.push_back(
        {true, std::string(kProgramTitle), std::move(text), answer, std::move(whileShown)});
}

void ScriptedBoxes::Critical(std::string_view text, std::string_view title)
{
    Show(false, text, title);
}

bool ScriptedBoxes::AskOkCancel(std::string_view text)
{
    return Show(true, text, kProgramTitle);
}

bool ScriptedBoxes::Show(bool question, std::string_view text, std::string_view title)
{
    ++shown;
    if (planned_.empty()) {
        ADD_FAILURE() << "an unplanned box: " << text;
        return false;
    }
    const Planned box = std::move(planned_.front());
    planned_.pop_front();
    EXPECT_EQ(box.question, question) << text;
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.title, title);
    if (box.whileShown) box.whileShown();
    return box.answer;
}

} // namespace tarvex::tests
