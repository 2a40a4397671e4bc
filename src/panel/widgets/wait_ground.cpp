#include "panel/widgets/wait_ground.h"

#include "panel/widgets/look_palette.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace tarvex::panel
{

namespace
{

constexpr qreal kRound = 4; // of corners, in pixels
constexpr qreal kFront = 2; // the line where the filled part ends
constexpr qreal kHeavyEdge = 3;
constexpr qreal kHatch = 3;
constexpr int kBetweenHatches = 20;

QRectF Inside(const QRect& rect, qreal edge)
{
    return QRectF(rect).adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2);
}

void Hatch(QPainter& painter, const QRectF& room, const QColor& colour)
{
    painter.save();
    painter.setClipRect(room, Qt::IntersectClip);
    painter.setPen(QPen(colour, kHatch));
    const int height = static_cast<int>(room.height());
    const int right = static_cast<int>(room.right()) + height;
    for (int foot = 0; foot < right; foot += kBetweenHatches)
        painter.drawLine(foot - height, height, foot, 0);
    painter.restore();
}

void Fill(QPainter& painter, const QRect& rect, const ExchangeCount& count,
          const WaitColours& colours)
{
    painter.fillRect(rect, colours.empty);
    QRectF filled(rect);
    filled.setWidth(rect.width() * count.Share());
    if (count.stalled)
        Hatch(painter, QRectF(rect).adjusted(filled.width(), 0, 0, 0), colours.filled);
    painter.fillRect(filled, colours.filled);
    if (count.done > 0)
        painter.fillRect(QRectF(filled.right(), 0, kFront, rect.height()), colours.edge);
}

void FillRounded(QPainter& painter, const QRect& rect, const ExchangeCount& count,
                 const WaitColours& colours)
{
    QPainterPath shape;
    shape.addRoundedRect(Inside(rect, 1), kRound, kRound);
    painter.save();
    painter.setClipPath(shape);
    Fill(painter, rect, count, colours);
    painter.restore();
}

/// The part in which the drawings of these two shares, and of all between them, differ.
QRect Strip(const QRect& rect, double least, double most)
{
    const QRectF strip(rect.width() * least, rect.top(), rect.width() * (most - least) + kFront,
                       rect.height());
    return strip.toAlignedRect();
}

void DrawEdge(QPainter& painter, const QRect& rect, bool stalled, const QColor& colour)
{
    const qreal width = stalled ? kHeavyEdge : 1;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, width, stalled ? Qt::DashLine : Qt::SolidLine));
    painter.drawRoundedRect(Inside(rect, width), kRound, kRound);
}

/// The edge of a ground that is not stalled, where no corner is.
void DrawStraightEdges(QPainter& painter, const QRect& rect, const QColor& colour)
{
    painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), 1), colour);
    painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), colour);
}

bool IsBetweenCorners(const QRect& part, const QRect& whole)
{
    const int corner = static_cast<int>(kRound) + 2; // and its border
    return whole.adjusted(corner, 0, -corner, 0).contains(part);
}

} // namespace

WaitGround::WaitGround(ExchangeProgress& progress, QWidget* parent)
    : QWidget(parent), progress_(progress), pause_([this] { ShowChanges(); })
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    progress_.Watch([this] { TakeChange(); });
}

WaitGround::~WaitGround()
{
    progress_.Unwatch();
}

/// Only noted, for the unit waits.
void WaitGround::TakeChange()
{
    const ExchangeCount& now = progress_.Now();
    leastShare_ = std::min(leastShare_, now.Share());
    mostShare_ = std::max(mostShare_, now.Share());
    stallSeen_ = stallSeen_ || now.stalled;
    pause_.NoteChange();
    if (changed_) changed_();
}

/// A stall is seen everywhere, also when it ends.
void WaitGround::ShowChanges()
{
    update(stallSeen_ ? rect() : Strip(rect(), leastShare_, mostShare_));
    leastShare_ = mostShare_ = progress_.Now().Share();
    stallSeen_ = progress_.Now().stalled;
}

/// What a download fills step by step lies between the corners, and is drawn without any path.
void WaitGround::paintEvent(QPaintEvent* event)
{
    const ExchangeCount& count = progress_.Now();
    const WaitColours colours = WaitColoursOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!count.stalled && IsBetweenCorners(event->rect(), rect())) {
        Fill(painter, rect(), count, colours);
        DrawStraightEdges(painter, rect(), colours.edge);
    } else {
        FillRounded(painter, rect(), count, colours);
        DrawEdge(painter, rect(), count.stalled, colours.edge);
    }
}

} // namespace tarvex::panel
