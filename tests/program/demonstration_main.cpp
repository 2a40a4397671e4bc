#include "panel/palettes.h"
#include "program/demonstration.h"

#include <QApplication>
#include <QCommandLineParser>

#include <exception>
#include <iostream>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A scripted session at Tar Vex Manager."));
    parser.addHelpOption();
    parser.addOption({QStringLiteral("folder"), QStringLiteral("where the program starts"),
                      QStringLiteral("FOLDER"), QStringLiteral(".")});
    parser.addOption({QStringLiteral("block"), QStringLiteral("the block to download"),
                      QStringLiteral("NUMBER"), QStringLiteral("3")});
    parser.addOption({QStringLiteral("film"), QStringLiteral("picture all of the download")});
    parser.addOption({QStringLiteral("stalled"),
                      QStringLiteral("only a download, from a unit that falls silent")});
    parser.addOption({QStringLiteral("dark"), QStringLiteral("as on a dark desktop")});
    parser.process(application);
    if (parser.isSet(QStringLiteral("dark")))
        QApplication::setPalette(tarvex::tests::DarkPalette());

    try {
        const std::filesystem::path folder =
            parser.value(QStringLiteral("folder")).toStdU16String();
        std::filesystem::current_path(folder);
        tarvex::tests::Demonstration session(std::filesystem::current_path(),
                                             parser.value(QStringLiteral("block")).toInt(),
                                             parser.isSet(QStringLiteral("film")));
        const bool stalled = parser.isSet(QStringLiteral("stalled"));
        return (stalled ? session.RunIntoStall() : session.Run()) ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "tarvex-session: " << error.what() << '\n';
        return 1;
    }
}
