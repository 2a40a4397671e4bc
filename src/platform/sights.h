#pragma once

#include "platform/box_place.h"

#include <vector>

class QWidget;

namespace tarvex::platform
{

/// What a box that comes up over this window should leave in sight: before all the field that it
/// speaks of, then the other fields, then what says what is seen: captions, tabs and the title. As
/// far as they are in sight themselves.
std::vector<Sight> SightsOf(const QWidget& window);

} // namespace tarvex::platform
