#pragma once

#include <QString>

namespace tarvex::panel
{

/// What to set as the tool tip that shows `text`: in lines of at most 60 characters, broken at
/// blanks only, so that no tip goes across the whole screen. A longer word has a line of its own.
/// The names of devices and folders in it are text, whatever they look like.
QString TipText(const QString& text);

} // namespace tarvex::panel
