#include "panel/forms/machine_places.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <fstream>

namespace tarvex::panel
{

#ifdef Q_OS_WIN

std::vector<Place> MachinePlaces(const std::filesystem::path& startFolder)
{
    std::vector<Place> places;
    for (const QFileInfo& drive : QDir::drives())
        places.push_back({drive.filesystemFilePath(), drive.filesystemFilePath()});
    std::stable_partition(places.begin(), places.end(), [&](const Place& place) {
        return place.folder.root_name() == startFolder.root_name();
    });
    return places;
}

#else

std::vector<Place> MachinePlaces(const std::filesystem::path& startFolder)
{
    std::ifstream mountTable("/proc/self/mountinfo");
    return UnixPlaces(startFolder, QFileInfo(QDir::homePath()).filesystemFilePath(),
                      MountPoints(mountTable));
}

#endif

} // namespace tarvex::panel
