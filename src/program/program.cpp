#include "program/program.h"

#include "core/failure.h"
#include "core/start_up.h"
#include "panel/forms/picture.h"
#include "panel/forms/report_folder.h"
#include "panel/widgets/look.h"
#include "platform/qt_application.h"
#include "program/manual.h"

#include <utility>

namespace tarvex
{

namespace
{

void CatchWhatEventsRaise(platform::Application::Report report)
{
    auto* const application = dynamic_cast<platform::Application*>(qApp);
    if (application != nullptr) application->OnFailure(std::move(report));
}

} // namespace

Program::Program(const std::filesystem::path& startFolder,
                 const std::filesystem::path& programFolder)
    : startFolder_(startFolder),
      finder_(startFolder),
      sideForms_({.state = state_,
                  .panel = panel_,
                  .handlers = handlers_,
                  .messages = messages_,
                  .startFolder = startFolder},
                 {.panel = panel_,
                  .line = LineWith(nullptr),
                  .handlers = handlers_,
                  .portNames = portNames_},
                 shell_, programFolder),
      databaseForms_({.panel = panel_,
                      .state = state_,
                      .survey = survey_,
                      .events = pump_,
                      .messages = messages_,
                      .handlers = handlers_,
                      .currentDirectory = SystemCurrentDirectory,
                      .openRows = [this] { return OpenRows(); }}),
      keyboard_(
          [this, programFolder] { handlers_.Run([&] { OpenInstalledManual(programFolder); }); })
{
    panel::DressProgram();
    sideForms_.Dress(panel::ApplyLook);
    sideForms_.OpenDatabasePanelBy([this] { databaseForms_.ShowPanel(); });
    databaseForms_.Dress(panel::ApplyLook);
    QApplication::setQuitOnLastWindowClosed(false); // the splash goes before the main form comes
    end_.OnEnd([this] { QCoreApplication::exit(end_.Status()); });
    CatchWhatEventsRaise([this](const std::string& reason) {
        handlers_.Run([&] { throw RunTimeFailure(reason); });
    });
}

Line Program::LineWith(WaitIndicator* indicator)
{
    return {.port = port_,
            .pump = pump_,
            .timer = timer_,
            .messages = messages_,
            .state = state_,
            .indicator = indicator};
}

std::unique_ptr<QAbstractItemModel> Program::OpenRows() const
{
    return std::make_unique<platform::SurveyTableModel>([this] { return survey_.databasePath; });
}

Program::~Program()
{
    CatchWhatEventsRaise({});
}

void Program::Start()
{
    sideForms_.ShowSplash([this] { ShowMainForm(); });
}

void Program::ShowMainForm()
{
    const panel::CommandContext context{.panel = panel_,
                                        .line = LineWith(&panel_.waitIndicator),
                                        .forms = sideForms_,
                                        .fileDialog = fileDialog_,
                                        .headerFolder = panel::DefaultReportFolder(startFolder_)};
    QGuiApplication::setWindowIcon(panel::ProgramIcon()); // now, for the splash needs none
    mainForm_ = std::make_unique<panel::MainWindow>(context, portNames_, handlers_, end_);
    sideForms_.StandAbove(mainForm_.get());
    databaseForms_.StandAbove(mainForm_.get());
    handlers_.Run([this] { LoadMainForm(panel_, state_, SystemCurrentDirectory); });
    mainForm_->show();
}

} // namespace tarvex
