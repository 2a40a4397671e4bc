#include "program/program_test.h"

#include <QTimer>
#include <QtTest>

#include <stdexcept>

namespace tarvex::tests
{

namespace
{

/// A program that ended leaves the toolkit's loops asked to quit; running the main one once takes
/// that back.
void ReviveEventLoops()
{
    QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
    QCoreApplication::exec();
}

/// Asks for the keyboard until the window has it: a window manager may come up later than the
/// window.
bool BecomesActive(QWidget& window)
{
    for (int attempt = 0; attempt < 20; ++attempt) {
        if (QTest::qWaitForWindowActive(&window, 500)) return true;
        window.hide(); // a manager that has come meanwhile takes care of a window when it is shown
        window.show();
        window.activateWindow();
    }
    return false;
}

} // namespace

ProgramTest::ProgramTest() : formerDirectory_(std::filesystem::current_path())
{
    ReviveEventLoops();
    std::filesystem::current_path(folder.Path());
}

ProgramTest::~ProgramTest()
{
    EXPECT_EQ(seen_.Unlisted(), QStringList())
        << "windows that the tests of the keyboard pass over";
    std::filesystem::current_path(formerDirectory_);
}

void ProgramTest::Start(const QStringList& unitOptions)
{
    unit = std::make_unique<UnitProcess>(folder.Path(), unitOptions);
    StartAlone();
}

void ProgramTest::StartAlone()
{
    const auto port = std::filesystem::symlink_status(folder / "com1");
    if (!std::filesystem::is_symlink(port))
        std::filesystem::create_symlink(folder / "nowhere", folder / "com1");
    StartIn(folder.Path());
}

void ProgramTest::StartIn(const std::filesystem::path& startFolder,
                          const std::filesystem::path& programFolder)
{
    program = std::make_unique<Program>(startFolder,
                                        programFolder.empty() ? folder.Path() : programFolder);
    program->ShowMainForm();
    if (!BecomesActive(*program->MainForm())) {
        throw std::runtime_error("the main form does not become active");
    }
    operator_.emplace(program->MainForm());
}

void ProgramTest::ChooseFolder(const std::filesystem::path& reports)
{
    program->State().reportFolder = reports;
    program->PanelModel().downloadButton.Enable();
}

void ProgramTest::CloseAfter(int milliseconds)
{
    QTimer::singleShot(milliseconds, program->MainForm(), [this] { program->MainForm()->close(); });
}

} // namespace tarvex::tests
