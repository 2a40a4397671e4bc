// window_bench RUNS: the survey window from the start of its process to its drawn plot, against an
// empty window with one empty plot, off-screen and on the display of DISPLAY.
#include "row.h"
#include "survey/downloads.h"
#include "survey/window/look.h"
#include "survey/window/main_window.h"
#include "survey/window/plot_view.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace
{

std::unique_ptr<QMainWindow> EmptyWindow()
{
    auto window = std::make_unique<QMainWindow>();
    window->setCentralWidget(new QCustomPlot(window.get()));
    window->resize(tarvex::survey::kUsualSize);
    return window;
}

std::unique_ptr<QMainWindow> SurveyWindow(const char* report)
{
    tarvex::survey::Dress();
    auto window = std::make_unique<tarvex::survey::MainWindow>();
    window->Open({report});
    return window;
}

/// One process: a window until its plot has been drawn and shown, which it says.
int ShowOnce(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    const auto window = argc > 2 ? SurveyWindow(argv[2]) : EmptyWindow();
    bool drawn = false;
    QObject::connect(window->findChild<QCustomPlot*>(), &QCustomPlot::afterReplot, window.get(),
                     [&] { drawn = true; });
    window->show();
    while (!drawn || !window->windowHandle()->isExposed())
        QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    std::puts("drawn");
    static_cast<void>(std::fflush(stdout));
    std::_Exit(0);
}

/// Milliseconds from its start to its word. Its end does not count: the system takes a while to
/// give back the watch of a folder.
double TimeOf(const QString& platform, const char* program, const QStringList& arguments)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
    process.setProcessEnvironment(environment);
    QElapsedTimer clock;
    clock.start();
    process.start(QString::fromLocal8Bit(program), arguments);
    if (!process.waitForReadyRead()) std::abort();
    const auto time = clock.nsecsElapsed();
    if (!process.waitForFinished() || process.exitCode() != 0) std::abort();
    return static_cast<double>(time) / 1e6;
}

double Median(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

void Compare(const char* platform, const char* program, const QString& report, int runs)
{
    const QStringList once{QStringLiteral("once")};
    const QStringList survey{once.front(), report};
    const auto name = QString::fromLatin1(platform);
    TimeOf(name, program, survey); // the disk's cache is warm from then on
    std::vector<double> empty;
    std::vector<double> full;
    for (int run = 0; run < runs; ++run) {
        empty.push_back(TimeOf(name, program, once));
        full.push_back(TimeOf(name, program, survey));
    }
    using tarvex::bench::Print;
    const std::string what = std::string("survey window to its drawn plot, ") + platform;
    Print({what, Median(full), "ms", "", tarvex::bench::Shown(Median(empty))});
    Print({what + ", beside an empty one", Median(full) / Median(empty), "", "<= 1.5"});
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc > 1 && std::string_view(argv[1]) == "once") return ShowOnce(argc, argv);
    const int runs = argc > 1 ? std::stoi(argv[1]) : 5;
    const tarvex::tests::TemporaryFolder folder;
    const auto report =
        QString::fromStdString(tarvex::tests::Download(folder.Path(), "1:depth=100").string());
    Compare("offscreen", argv[0], report, runs);
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) Compare("xcb", argv[0], report, runs);
    return 0;
}
