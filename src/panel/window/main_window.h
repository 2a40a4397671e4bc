#pragma once

#include "core/handlers.h"
#include "core/port_names.h"
#include "core/program_end.h"
#include "panel/window/commands.h"

#include <QWidget>

#include <memory>

namespace tarvex::panel
{

/// The main form `Scaricodati`: it shows the ControlPanel and lets the operator work on it. Closing
/// it ends the program at once with status 0, without a question.
class MainWindow final : public QWidget
{
public:
    /// Builds the form on the model as it is, and runs the port choice when the option group is
    /// clicked: so make it before LoadMainForm runs. Everything passed in outlives the form.
    MainWindow(const CommandContext& context, PortNames& portNames, Handlers& handlers,
               ProgramEnd& end);
    ~MainWindow() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    class Parts;
    std::unique_ptr<Parts> parts_;
    ProgramEnd& end_;
};

} // namespace tarvex::panel
