#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <vector>

namespace tarvex::platform
{

/// Where a box of that size, its frame included, comes up on the room of its screen: as near to the
/// middle of its window as it can without covering any of the fields; where there is no such place,
/// where it covers least of them. All in coordinates of the screen.
QPoint PlaceOfBox(const QSize& box, const QRect& room, const QRect& window,
                  const std::vector<QRect>& fields);

} // namespace tarvex::platform
