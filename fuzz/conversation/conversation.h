#pragma once

#include "common/choices.h"
#include "conversation/folders.h"
#include "conversation/hostile_boxes.h"
#include "conversation/hostile_port.h"
#include "conversation/hostile_unit.h"
#include "conversation/watched_pump.h"
#include "core/file_dialog.h"
#include "panel/window/commands.h"
#include "panel/window/forms.h"
#include "support/test_program.h"

namespace tarvex::fuzz
{

/// One run of the program below the window, on a virtual clock: an operator who presses commands
/// and types by choice, at any moment, also inside the waits of others; a unit, a port, folders and
/// boxes that do as they choose.
class Conversation
{
public:
    explicit Conversation(Choices& choices);

    /// From the first press to the end of the program.
    void Run();

private:
    /// Windows of the toolkit, which are not here.
    class NoForms : public Forms
    {
    public:
        void ShowAbout() override {}
        void ShowFolderChooser() override {}
        void OpenManual() override {}
        void ShowPortDialog() override {}
        void ShowClockDialog() override {}
        void ShowDelayDialog() override {}
        void ShowDatabasePanel() override {}
    };

    /// Gives the file that the folders choose.
    class Dialog : public FileDialog
    {
    public:
        explicit Dialog(Folders& folders) : folders_(folders) {}
        void ShowOpen(std::string_view title) override;
        void ShowSave(std::string_view title, Fate fate) override;

    private:
        Folders& folders_;
    };

    void PlanOperator();
    void Act();
    void Press(void (*command)(panel::CommandContext&));
    void PressAnyCommand();
    void PressInARow();
    void Type();
    void LeaveAField();
    void DoHarmToLine();
    void RequireSound() const;

    Choices& choices_;
    tests::TestProgram program_;
    Folders folders_;
    HostileUnit unit_;
    HostileBoxes boxes_;
    HostilePort port_;
    WatchedPump pump_;
    NoForms forms_;
    Dialog dialog_;
    panel::CommandContext context_;
    int underWay_ = 0;
};

} // namespace tarvex::fuzz
