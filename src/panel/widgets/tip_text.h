#pragma once

#include <QString>

namespace tarvex::panel
{

/// `text` in lines of at most 60 characters, broken at blanks only, so that no tool tip goes across
/// the whole screen. A longer word has a line of its own.
QString TipText(const QString& text);

} // namespace tarvex::panel
