#pragma once

#include <QColor>
#include <QPalette>

namespace tarvex::panel
{

/// The desktop's colours with texts that are read in sunlight, in a light theme and in a dark one;
/// what is disabled stays legible. A palette that is so already comes back as it is.
QPalette Contrasting(QPalette palette);

/// The border of fields, buttons and lists.
QColor EdgeColour(const QPalette& palette);

/// The mark of the control that has the keyboard, on that ground of its control.
QColor MarkColour(const QPalette& palette, const QColor& ground);

/// The wait indicator, under a plain text: each part has a contrast of 3 with the one beside it,
/// and the text one of 4.5 with each.
struct WaitColours {
    QColor empty;
    QColor filled;
    QColor edge; ///< also of the line between the two
};
WaitColours WaitColoursOf(const QPalette& palette);

} // namespace tarvex::panel
