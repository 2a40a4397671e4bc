#include "panel/widgets/rounded_frame.h"

#include <QPainter>
#include <QPixmapCache>

#include <cmath>

namespace tarvex::panel
{

namespace
{

constexpr qreal kRound = 3; // of corners, in pixels
constexpr int kCorner = 6;  // pixels from each side that a corner takes, with its border

bool IsWhole(qreal number)
{
    return number == std::floor(number);
}

/// Pixels of the screen for one of the window; 0 where they do not fit each other.
int WholeScale(const QPainter& painter)
{
    const QTransform& place = painter.deviceTransform();
    const bool isPlain = place.type() <= QTransform::TxScale && place.m11() == place.m22();
    if (!isPlain || place.m11() < 1 || !IsWhole(place.m11())) return 0;
    return IsWhole(place.dx()) && IsWhole(place.dy()) ? static_cast<int>(place.m11()) : 0;
}

bool IsPlain(const RoundedFrame& frame)
{
    const Qt::BrushStyle ground = frame.ground.style();
    return frame.edge.alpha() == 255 && (ground == Qt::NoBrush || ground == Qt::SolidPattern);
}

/// The smallest frame that has all four corners.
QPixmap Corners(const RoundedFrame& frame, int scale)
{
    const bool isFilled = frame.ground.style() != Qt::NoBrush;
    const QString key = QStringLiteral("tarvex-frame-%1-%2-%3-%4")
                            .arg(frame.edge.rgba())
                            .arg(frame.width)
                            .arg(isFilled ? frame.ground.color().rgba() : 0)
                            .arg(scale);
    QPixmap corners;
    if (QPixmapCache::find(key, &corners)) return corners;
    const QRect rect(0, 0, 2 * kCorner, 2 * kCorner);
    corners = QPixmap(rect.size() * scale);
    corners.setDevicePixelRatio(scale);
    corners.fill(Qt::transparent);
    QPainter painter(&corners);
    StrokeRoundedFrame(painter, rect, frame);
    QPixmapCache::insert(key, corners);
    return corners;
}

void DrawCorners(QPainter& painter, const QRect& rect, const QPixmap& corners, int scale)
{
    const QSizeF size(kCorner, kCorner);
    for (const bool isLow : {false, true}) {
        for (const bool isRight : {false, true}) {
            const QPointF place(isRight ? rect.right() + 1 - kCorner : rect.left(),
                                isLow ? rect.bottom() + 1 - kCorner : rect.top());
            const QPointF part(isRight ? kCorner : 0, isLow ? kCorner : 0);
            painter.drawPixmap(QRectF(place, size), corners, QRectF(part * scale, size * scale));
        }
    }
}

/// The ground and the four sides.
void DrawBetweenCorners(QPainter& painter, const QRect& rect, const RoundedFrame& frame)
{
    const QRect high = rect.adjusted(kCorner, 0, -kCorner, 0);
    const QRect wide = rect.adjusted(0, kCorner, 0, -kCorner);
    if (frame.ground.style() != Qt::NoBrush) {
        painter.fillRect(high, frame.ground);
        painter.fillRect(QRect(wide.topLeft(), QSize(kCorner, wide.height())), frame.ground);
        painter.fillRect(wide.adjusted(wide.width() - kCorner, 0, 0, 0), frame.ground);
    }
    painter.fillRect(QRect(high.topLeft(), QSize(high.width(), frame.width)), frame.edge);
    painter.fillRect(high.adjusted(0, high.height() - frame.width, 0, 0), frame.edge);
    painter.fillRect(QRect(wide.topLeft(), QSize(frame.width, wide.height())), frame.edge);
    painter.fillRect(wide.adjusted(wide.width() - frame.width, 0, 0, 0), frame.edge);
}

} // namespace

void DrawRoundedFrame(QPainter& painter, const QRect& rect, const RoundedFrame& frame)
{
    const int scale = WholeScale(painter);
    const bool hasRoom = rect.width() > 2 * kCorner && rect.height() > 2 * kCorner;
    if (scale == 0 || !hasRoom || !IsPlain(frame)) return StrokeRoundedFrame(painter, rect, frame);
    DrawBetweenCorners(painter, rect, frame);
    DrawCorners(painter, rect, Corners(frame, scale), scale);
}

void StrokeRoundedFrame(QPainter& painter, const QRect& rect, const RoundedFrame& frame)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(frame.edge, frame.width));
    painter.setBrush(frame.ground);
    const qreal inset = frame.width / 2.0;
    painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), kRound, kRound);
    painter.restore();
}

} // namespace tarvex::panel
