#pragma once

#include <QSize>

class QWidget;

namespace tarvex::panel
{

/// The size that a window may have at most, so that it and its frame lie within the free part of
/// the screen that it opens on.
QSize FreeSize(const QWidget& window);

/// Gives a window that is not yet shown the size of its contents, or `least` if that is larger, and
/// its title room to be read; but never more than the FreeSize. Contents that need more are set
/// closer together, and where that is not enough they scroll.
void FitToScreen(QWidget& window, QSize least = {});

} // namespace tarvex::panel
