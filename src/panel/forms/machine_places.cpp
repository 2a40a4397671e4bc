#include "panel/forms/machine_places.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <QDir>
#include <string>
#else
#include <cstdlib>
#include <fstream>
#endif

namespace tarvex::panel
{

#ifdef Q_OS_WIN

std::vector<Place> MachinePlaces(const std::filesystem::path&)
{
    std::string letters;
    for (const QFileInfo& drive : QDir::drives())
        letters += drive.filePath().front().toLatin1();
    return DrivePlaces(letters);
}

#else

std::vector<Place> MachinePlaces(const std::filesystem::path& startFolder)
{
    std::ifstream mountTable("/proc/self/mountinfo");
    const char* const home = std::getenv("HOME");
    return UnixPlaces(startFolder, home != nullptr ? home : "", MountPoints(mountTable));
}

#endif

} // namespace tarvex::panel
