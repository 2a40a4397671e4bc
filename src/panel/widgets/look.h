#pragma once

#include <QFont>

class QLabel;
class QWidget;

namespace tarvex::panel
{

/// Gives the program its look, in all windows and boxes alike: a font that is read in sunlight and
/// at arm's length, and a strong contrast of texts and borders with their ground, in the desktop's
/// colours and whenever they change. A second call does nothing.
void DressProgram();

/// The same, for whoever makes a window.
void ApplyLook(QWidget& window);

/// Makes a label the heading of what is below it.
void MakeHeading(QLabel& label);

/// The font of a box whose blanks count: every character equally wide.
QFont FixedWidthFont();

} // namespace tarvex::panel
