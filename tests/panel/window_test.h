#pragma once

#include "panel/window/main_window.h"
#include "support/logic_test.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>

#include <memory>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// Side forms that only remember what was opened.
class RecordedForms : public Forms
{
public:
    std::vector<std::string> opened;

    void ShowAbout() override { opened.emplace_back("about"); }
    void ShowFolderChooser() override { opened.emplace_back("folder chooser"); }
    void OpenManual() override { opened.emplace_back("manual"); }
    void ShowPortDialog() override { opened.emplace_back("port dialog"); }
    void ShowClockDialog() override { opened.emplace_back("clock dialog"); }
    void ShowDelayDialog() override { opened.emplace_back("delay dialog"); }
    void ShowDatabasePanel() override { opened.emplace_back("database panel"); }
};

/// Port names that count how often they were asked.
class CountedPortNames : public PortNames
{
public:
    int asked = 0;
    std::string more; // at the end of each answer
    std::string Describe(int number) override
    {
        return "device " + std::to_string(number) + ", answer " + std::to_string(++asked) + more;
    }
};

/// A file dialog in which the operator chooses `choice`.
class PlannedFileDialog : public FileDialog
{
public:
    std::vector<std::string> shown;
    std::filesystem::path choice;

    void ShowOpen(std::string_view) override { Show("open"); }
    void ShowSave(std::string_view, Fate) override { Show("save"); }

private:
    void Show(const std::string& kind)
    {
        shown.push_back(kind);
        fileName = choice;
    }
};

/// The main form on the logic's virtual world, shown and active, with the start-up done. Widgets
/// are found by object name, and keys and clicks are real events.
class WindowTest : public LogicTest
{
protected:
    WindowTest();
    ~WindowTest() override;

    /// The widget of that name and kind; the test stops, and what is there is printed, when none
    /// is.
    template <class Widget = QWidget>
    Widget& Named(const std::string& name)
    {
        auto* found = dynamic_cast<Widget*>(Find(name));
        if (found == nullptr) Missing(name);
        return *found;
    }

    QLineEdit& Edit(const std::string& name) { return Named<QLineEdit>(name); }
    QAbstractButton& Button(const std::string& name) { return Named<QAbstractButton>(name); }

    /// Presses and releases the left button in the middle of the control.
    void ClickOn(const std::string& name);

    /// Sets the focus on the box, empties it and types.
    void TypeInto(const std::string& name, const QString& text);

    /// Moves the focus to the box by the program.
    void Enter(const std::string& name);

    void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// The name of the control that has the focus.
    std::string Focused() const;

    /// Selects the tab of that index, from 1, by a click.
    void ClickTab(int index);

    ProgramEnd end;
    Handlers handlers{end, boxes};
    RecordedForms forms;
    CountedPortNames portNames;
    PlannedFileDialog fileDialog;
    std::unique_ptr<panel::MainWindow> window;

private:
    QWidget* Find(const std::string& name);
    [[noreturn]] void Missing(const std::string& name);
};

} // namespace tarvex::tests
