#include "platform/empty_drives.h"
#include "platform/file_size_limit.h"
#include "platform/qt_application.h"
#include "platform/qt_path.h"
#include "platform/text/qt_text.h"
#include "program/command_line.h"
#include "program/program.h"

#include <QMessageBox>

#include <exception>
#include <iostream>
#include <system_error>

namespace
{

/// What fails before there is a window: no handler is at work yet.
int EndBeforeTheFirstWindow(const std::exception& failure)
{
    QMessageBox::critical(nullptr, tarvex::ToQString(tarvex::kProgramTitle),
                          tarvex::ToQString(std::string("Run-time error: ") + failure.what()));
    return 1;
}

std::unique_ptr<tarvex::Program> StartProgram()
{
    std::error_code gone; // the folder can be: what needs it then fails by itself
    auto program = std::make_unique<tarvex::Program>(std::filesystem::current_path(gone),
                                                     tarvex::platform::ProgramFolder());
    program->Start();
    return program;
}

} // namespace

int main(int argc, char* argv[])
{
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (const auto status = tarvex::AnswerCommandLine(arguments, std::cout, std::cerr))
        return *status;
    tarvex::platform::FailWritesAtTheSizeLimit();
    tarvex::platform::FailAtAnEmptyDrive();

    tarvex::platform::Application application(argc, argv);
    if (argc > 1) return tarvex::RefuseArgument(argv[1], std::cerr); // not taken on this desktop
    QCoreApplication::setApplicationName(QStringLiteral("tarvex-manager"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARVEX_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("example.tarvex.Manager"));
    try {
        const auto program = StartProgram();
        return QCoreApplication::exec();
    } catch (const std::exception& failure) {
        return EndBeforeTheFirstWindow(failure);
    }
}
