// The window from the start of its process to its drawn plot, against an empty window with one
// empty plot. Takes the display that it is given.
#include "survey/downloads.h"
#include "survey/window/main_window.h"
#include "survey/window/plot_view.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace
{

std::unique_ptr<QMainWindow> EmptyWindow()
{
    auto window = std::make_unique<QMainWindow>();
    window->setCentralWidget(new QCustomPlot(window.get()));
    window->resize(1100, 760);
    return window;
}

std::unique_ptr<QMainWindow> SurveyWindow(const char* report)
{
    auto window = std::make_unique<tarvex::survey::MainWindow>();
    window->Open({report});
    return window;
}

/// One process: a window until its plot has been drawn and shown.
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
    std::_Exit(0);
}

/// Milliseconds of one such process.
double TimeOf(const char* program, const QStringList& arguments)
{
    QElapsedTimer clock;
    clock.start();
    if (QProcess::execute(QString::fromLocal8Bit(program), arguments) != 0) std::abort();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

double Median(std::vector<double> times)
{
    std::ranges::sort(times);
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc > 1) return ShowOnce(argc, argv);
    const tarvex::tests::TemporaryFolder folder;
    const auto report = tarvex::tests::Download(folder.Path(), "1:depth=100");
    const QStringList once{QStringLiteral("once")};
    const QStringList survey{once.front(), QString::fromStdString(report.string())};
    TimeOf(argv[0], survey); // the disk's cache is warm from then on
    constexpr int kRuns = 15;
    std::vector<double> empty;
    std::vector<double> full;
    for (int run = 0; run < kRuns; ++run) {
        empty.push_back(TimeOf(argv[0], once));
        full.push_back(TimeOf(argv[0], survey));
    }
    std::printf("empty window with an empty plot  %8.1f ms\n", Median(empty));
    std::printf("survey window with its plot      %8.1f ms  (%.2f, 1.5 is the limit)\n",
                Median(full), Median(full) / Median(empty));
    return 0;
}
