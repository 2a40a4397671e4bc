#pragma once

#include "core/control_panel.h"
#include "core/handlers.h"
#include "core/program_end.h"
#include "core/working_state.h"
#include "panel/forms/side_forms.h"
#include "panel/survey/database_forms.h"
#include "panel/widgets/keyboard.h"
#include "panel/window/main_window.h"
#include "platform/qt_event_pump.h"
#include "platform/qt_file_dialog.h"
#include "platform/qt_message_boxes.h"
#include "platform/qt_port_names.h"
#include "platform/qt_serial_port.h"
#include "platform/qt_shell.h"
#include "platform/qt_tick_timer.h"
#include "platform/sqlite/sqlite_engine.h"
#include "platform/sqlite/survey_table_model.h"

#include <filesystem>
#include <memory>

namespace tarvex
{

/// The whole program, put together: it needs a QApplication around it and nothing else.
class Program
{
public:
    /// `startFolder` is where the program was started, `programFolder` where it lies.
    Program(const std::filesystem::path& startFolder, const std::filesystem::path& programFolder);
    ~Program();

    /// Shows the splash, which gives way to the main form.
    void Start();

    /// Loads and shows the main form at once.
    void ShowMainForm();

    /// The exit status, once the program has ended.
    const ProgramEnd& End() const { return end_; }

    /// The main form; none before it is shown.
    panel::MainWindow* MainForm() const { return mainForm_.get(); }

    ControlPanel& PanelModel() { return panel_; }
    WorkingState& State() { return state_; }

private:
    Line LineWith(WaitIndicator* indicator);
    std::unique_ptr<QAbstractItemModel> OpenRows() const;

    std::filesystem::path startFolder_;
    ProgramEnd end_;
    WorkingState state_;
    ControlPanel panel_;
    platform::QtMessageBoxes messages_{end_};
    Handlers handlers_{end_, messages_};
    platform::PortFinder finder_;
    platform::PortSurroundings surroundings_;
    platform::QtPortNames portNames_{finder_, surroundings_};
    platform::QtSerialPort port_{finder_, surroundings_};
    platform::QtEventPump pump_{end_};
    platform::QtTickTimer timer_{[this] { CountTick(state_); }};
    platform::QtShell shell_;
    platform::QtFileDialog fileDialog_{end_};
    platform::SqliteEngine engine_;
    SurveyDatabase survey_{engine_};
    panel::SideForms sideForms_;
    panel::DatabaseForms databaseForms_;
    panel::Keyboard keyboard_;
    std::unique_ptr<panel::MainWindow> mainForm_;
};

} // namespace tarvex
