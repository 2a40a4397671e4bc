#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <vector>

namespace tarvex::platform
{

/// What a box should leave in sight, and how much it is worth against the others.
struct Sight {
    QRect place;
    int worth = 1;
};

/// Where a box of that size, its frame included, comes up on the room of its screen: as near to the
/// middle of its window as it can without covering any of the sights; where there is no such place,
/// where the area that it covers is worth least. All in coordinates of the screen.
QPoint PlaceOfBox(const QSize& box, const QRect& room, const QRect& window,
                  const std::vector<Sight>& sights);

} // namespace tarvex::platform
