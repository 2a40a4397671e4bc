#include "program/windows.h"

#include <QApplication>
#include <QEvent>

#include <algorithm>
#include <array>

namespace tarvex::tests
{

namespace
{

void OpenService(Operator& panel, const char* entry)
{
    panel.ChooseService(QLatin1String(entry));
}

void OpenFolderChooser(Operator& panel)
{
    panel.ShowTab(2);
    panel.Click("Command10");
    const QWidget* chooser = ShownForm("Form6");
    WaitFor([chooser] { return chooser->findChild<QWidget*>("command3d1")->isEnabled(); });
}

void OpenGrid(Operator& panel)
{
    OpenService(panel, "Database Tar Vex");
    Operator(ShownForm("Form4")).Click("Command2");
}

constexpr std::array kWindows = {
    ProgramWindow{"Scaricodati", [](Operator&) {}},
    ProgramWindow{"aboutus", [](Operator& panel) { panel.Click("Command11"); }},
    ProgramWindow{"Form6", OpenFolderChooser},
    ProgramWindow{"Form1", [](Operator& panel) { OpenService(panel, "Serial port RS232"); }},
    ProgramWindow{"Form2", [](Operator& panel) { OpenService(panel, "Set Clock"); }},
    ProgramWindow{"Form3",
                  [](Operator& panel) { OpenService(panel, "Delay for Automatic Cycle"); }},
    ProgramWindow{"Form4", [](Operator& panel) { OpenService(panel, "Database Tar Vex"); }},
    ProgramWindow{"Form5", OpenGrid},
};

/// Boxes with keys of the toolkit's, and the splash, which takes none.
constexpr std::array kOthers = {"messageBox", "CommonDialog1", "NewFolderName", "preloader",
                                kForeignWindow};

bool IsListed(const QString& name)
{
    return std::ranges::count(kWindows, name, &ProgramWindow::name) > 0 ||
           std::ranges::count(kOthers, name) > 0;
}

} // namespace

std::span<const ProgramWindow> ProgramWindows()
{
    return kWindows;
}

SeenWindows::SeenWindows()
{
    qApp->installEventFilter(this);
}

QStringList SeenWindows::Unlisted() const
{
    QStringList unlisted;
    for (const QString& name : names_)
        if (!IsListed(name)) unlisted << name;
    return unlisted;
}

bool SeenWindows::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Show || !watched->isWidgetType()) return false;
    const auto& widget = static_cast<const QWidget&>(*watched);
    const bool window = widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog ||
                        widget.windowType() == Qt::SplashScreen;
    if (window && !names_.contains(widget.objectName())) names_ << widget.objectName();
    return false;
}

} // namespace tarvex::tests
