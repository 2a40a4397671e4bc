#include "support/test_program.h"

#include "core/record_file.h"
#include "core/start_up.h"

#include <gtest/gtest.h>

namespace tarvex::tests
{

TestProgram::TestProgram()
{
    panel.portOptions.OnClick([this](int index) { state.comPortNumber = index + 1; });
    LoadMainForm(panel, state, [this] { return folder.Path(); });
}

void TestProgram::Click(const std::function<void()>& handler)
{
    handlers_.Run([&] {
        handler();
        ++finishedHandlers;
    });
}

void TestProgram::ClickLink(const std::function<void(DeviceLink&)>& handler)
{
    Click([&] {
        DeviceLink link(line);
        handler(link);
    });
}

BlockHeader TestProgram::StoredHeader(int recordNumber) const
{
    RecordFile file(sizeof(BlockHeader));
    file.Open(state.headerFilePath);
    BlockHeader header;
    file.Get(recordNumber, header);
    EXPECT_FALSE(file.EndOfFile()) << "no record " << recordNumber;
    return header;
}

bool TestProgram::LineAtRest() const
{
    return !port.IsOpen() && !panel.waitIndicator.label.Visible() &&
           !panel.waitIndicator.ground.Visible();
}

std::vector<std::string> TestProgram::HeaderBoxTexts() const
{
    std::vector<std::string> texts;
    for (const TextBox& box : panel.header.things)
        texts.push_back(box.Text());
    for (const TextBox& box : panel.calibration.things)
        texts.push_back(box.Text());
    return texts;
}

void TestProgram::LogIndicator()
{
    const auto log = [this](std::string name, Control& control) {
        control.Watch([this, name = std::move(name), &control] {
            port.history.push_back(name + (control.Visible() ? " on" : " off"));
        });
    };
    log("Label34", panel.waitIndicator.label);
    log("Shape1", panel.waitIndicator.ground);
}

void TestProgram::ErrorBox::Critical(std::string_view text, std::string_view title)
{
    constexpr std::string_view opening = "Run-time error: ";
    EXPECT_TRUE(text.starts_with(opening)) << text;
    EXPECT_EQ(title, kProgramTitle);
    reason_ = text.substr(opening.size());
}

bool TestProgram::ErrorBox::AskOkCancel(std::string_view text)
{
    ADD_FAILURE() << "a failure asks nothing: " << text;
    return false;
}

} // namespace tarvex::tests
