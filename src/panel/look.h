#pragma once

#include <QFont>

class QLabel;
class QWidget;

namespace tarvex::panel
{

/// Gives a window and what it holds the program's look: a font that is read in sunlight and at
/// arm's length, and a strong contrast between text and ground, in the desktop's own style.
void ApplyLook(QWidget& window);

/// Makes a label the heading of what is below it.
void MakeHeading(QLabel& label);

/// Gives a box that takes no typing the ground of its window.
void ShowLocked(QWidget& box);

/// The font of a box whose blanks count: every character equally wide.
QFont FixedWidthFont();

} // namespace tarvex::panel
