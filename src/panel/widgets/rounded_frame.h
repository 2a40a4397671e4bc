#pragma once

#include <QBrush>
#include <QColor>
#include <QRect>

class QPainter;

namespace tarvex::panel
{

/// The frame of a control, with round corners.
struct RoundedFrame {
    QColor edge;
    int width = 1; ///< of the border, in pixels of a screen that is not scaled
    QBrush ground = Qt::NoBrush;
};

/// Draws the frame just inside `rect`. Its corners are kept as a picture, and what lies between
/// them is plain rectangles: the toolkit draws the whole box again when its text changes, and to
/// stroke the frame anew took more time than all the rest of the box. Where the pixels of the
/// screen do not fit those of the window (a scale of 1.25, say) the frame is stroked. The pixels
/// are those of the stroked frame, but for the rounding of a corner that is blended twice.
void DrawRoundedFrame(QPainter& painter, const QRect& rect, const RoundedFrame& frame);

/// The same, always stroked.
void StrokeRoundedFrame(QPainter& painter, const QRect& rect, const RoundedFrame& frame);

} // namespace tarvex::panel
