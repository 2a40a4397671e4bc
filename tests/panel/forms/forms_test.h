#pragma once

#include "panel/forms/side_forms.h"
#include "support/scripted_boxes.h"
#include "support/scripted_unit.h"
#include "support/temporary_folder.h"

#include <QAbstractButton>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// A shell that opens nothing and remembers what it was asked.
class RecordingShell : public Shell
{
public:
    void Execute(const ShellRequest& request) override { requests.push_back(request); }

    std::vector<ShellRequest> requests;
};

/// Ports that are known by their numbers alone.
class NumberedPorts : public PortNames
{
public:
    std::string Describe(int number) override { return "port " + std::to_string(number); }
};

/// The side forms with a start folder of their own, below no main form.
class FormsTest : public ::testing::Test
{
protected:
    FormsTest();
    ~FormsTest() override;

    /// The windows of that object name that are on view.
    static std::vector<QWidget*> WindowsNamed(const char* name);

    /// The only one of them; the test ends with what is there when there is not just one.
    static QWidget& Window(const char* name);

    /// The control of that object name in a window.
    template <class Widget>
    static Widget& Control(const char* window, const char* name)
    {
        auto* control = Window(window).findChild<Widget*>(name);
        if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return *control;
    }

    static void Press(const char* window, const char* button);

    /// Runs events until that holds, with a patience for busy machines.
    static bool Comes(const std::function<bool()>& condition);

    /// Lets closed windows go.
    static void DeleteClosed();

    TemporaryFolder folder;
    WorkingState state;
    ControlPanel panel;
    ScriptedBoxes boxes;
    ProgramEnd end;
    Handlers handlers{end, boxes};
    RecordingShell shell;
    VirtualWorld world{[this] { CountTick(state); }};
    ScriptedPort port;
    ScriptedUnit unit{world, port};
    NumberedPorts portNames;
    panel::DialogContext dialogs{
        panel, {port, world, world, boxes, state, &panel.waitIndicator}, handlers, portNames};
    panel::SideForms forms{
        {state, panel, handlers, boxes, folder.Path()}, dialogs, shell, folder / "bin"};
};

} // namespace tarvex::tests
