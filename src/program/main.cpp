#include "program/program.h"

#include <QApplication>

#include <system_error>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tarvex-manager"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARVEX_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("example.tarvex.Manager"));

    std::error_code gone; // the folder can be: what needs it then fails by itself
    tarvex::Program program(std::filesystem::current_path(gone),
                            QCoreApplication::applicationDirPath().toStdU16String());
    program.Start();
    return QCoreApplication::exec();
}
