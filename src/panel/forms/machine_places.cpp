#include "panel/forms/machine_places.h"

#include "platform/text/qt_text.h"

#ifdef Q_OS_WIN
#include <QDir>
#include <algorithm>
#else
#include <cstdlib>
#include <fstream>
#endif

namespace tarvex::panel
{

#ifdef Q_OS_WIN

std::vector<Place> MachinePlaces(const std::filesystem::path& startFolder)
{
    std::vector<Place> places;
    for (const QFileInfo& drive : QDir::drives())
        places.push_back({PathFromQString(drive.filePath()), PathFromQString(drive.filePath())});
    std::stable_partition(places.begin(), places.end(), [&](const Place& place) {
        return place.folder.root_name() == startFolder.root_name();
    });
    return places;
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
