#include "survey/program/show_window.h"

#include "survey/files/load.h"
#include "survey/files/refusal.h"
#include "survey/files/report_names.h"
#include "survey/window/application.h"
#include "survey/window/look.h"
#include "survey/window/main_window.h"
#include "survey/window/survey_icon.h"

#include <QTimer>

#include <filesystem>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

/// Qt ends the process without a word of its own where no display is.
void RequireDisplay()
{
    for (const char* name : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"})
        if (!qEnvironmentVariableIsEmpty(name)) return;
    throw Refusal("there is no display for a window; --help lists the commands that need none");
}

void OpenFirst(MainWindow& window, const Options& options)
{
    std::error_code error;
    if (!options.files.empty())
        window.Open({options.files.begin(), options.files.end()});
    else if (fs::is_directory("dati", error))
        window.Open({"dati"});
}
} // namespace

int ShowWindow(const Options& options)
{
    std::error_code error;
    for (const auto& file : options.files)
        if (!fs::exists(file, error)) throw Refusal(Shown(file) + " is not there");
    RequireDisplay();

    int count = 1;
    char name[] = "tarvex-survey";
    char* arguments[] = {name, nullptr};
    Application application(count, arguments);
    QCoreApplication::setApplicationName(QStringLiteral("tarvex-survey"));
    QGuiApplication::setDesktopFileName(QStringLiteral("example.tarvex.Survey"));
    Dress();
    MainWindow window;
    application.OnFailure([&](const std::string& sentence) { window.Report(sentence); });
    application.Try([&] { OpenFirst(window, options); });
    window.show();
    // The icon is drawn when the window is there: nobody waits for it.
    QTimer::singleShot(0, &window, [] { QGuiApplication::setWindowIcon(SurveyIcon()); });
    return Application::exec();
}

} // namespace tarvex::survey
