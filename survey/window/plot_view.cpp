#include "survey/window/plot_view.h"

#include "survey/window/plot_legend.h"
#include "survey/window/plotter.h"
#include "survey/window/window_text.h"

#include <QCoreApplication>
#include <QStyleOption>

#include <array>

namespace tarvex::survey
{

namespace
{
constexpr double kMetre = 10; // tenths

PlotColours ColoursOf(const QPalette& palette)
{
    PlotColours colours{palette.color(QPalette::Base), palette.color(QPalette::Text), {}};
    colours.grid = colours.ink;
    colours.grid.setAlphaF(0.2F);
    return colours;
}
} // namespace

PlotView::PlotView(QWidget* parent) : QCustomPlot(parent)
{
    // The drawing that the base class has asked for would come once more, after the first.
    QCoreApplication::removePostedEvents(this, QEvent::MetaCall);
    setObjectName(QStringLiteral("plot"));
    setAccessibleName(QStringLiteral("Plots of channels A and B against the depth"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    Redraw();
}

void PlotView::Show(PlotPage page)
{
    page_ = std::move(page);
    Redraw();
}

QSize PlotView::sizeHint() const
{
    return minimumSize();
}

QSize PlotView::minimumSizeHint() const
{
    return minimumSize();
}

/// What has no size yet is drawn with the resizing that comes before it is shown.
void PlotView::DrawSoon()
{
    if (!testAttribute(Qt::WA_PendingResizeEvent)) replot(rpQueuedReplot);
}

void PlotView::Redraw()
{
    pointers_.clear();
    Draw(*this, {page_}, ColoursOf(palette()));
    whole_ = Shown();
    ShareDepth();
    AddPointer();
    FitTexts();
    DrawSoon();
}

/// Both channels always show the same stretch of the tube.
void PlotView::ShareDepth()
{
    const auto rects = axisRects();
    for (auto* const one : rects)
        for (auto* const other : rects)
            if (one != other)
                connect(
                    one->axis(QCPAxis::atLeft), qOverload<const QCPRange&>(&QCPAxis::rangeChanged),
                    other->axis(QCPAxis::atLeft), qOverload<const QCPRange&>(&QCPAxis::setRange));
}

void PlotView::AddPointer()
{
    for (auto* const rect : axisRects()) {
        auto* const line = new QCPItemStraightLine(this);
        line->setClipAxisRect(rect);
        line->setPen(QPen(palette().color(QPalette::Highlight), 1.5));
        for (auto* const position : {line->point1, line->point2}) {
            position->setAxisRect(rect);
            position->setAxes(rect->axis(QCPAxis::atBottom), rect->axis(QCPAxis::atLeft));
        }
        pointers_.push_back(line);
    }
    PointTo(pointed_);
}

void PlotView::PointTo(double tenths)
{
    pointed_ = tenths;
    for (auto* const line : pointers_) {
        line->point1->setCoords(0, tenths / kMetre);
        line->point2->setCoords(1, tenths / kMetre);
    }
    DrawSoon();
}

void PlotView::Point(double tenths)
{
    isPointed_ = true;
    PointTo(tenths);
    if (depthPointed) depthPointed(tenths);
}

/// Keys can lead to a depth that a zoom has left outside.
void PlotView::BringIntoView(double tenths)
{
    auto* const depths = axisRect(0)->axis(QCPAxis::atLeft);
    const auto range = depths->range();
    const double metres = tenths / kMetre;
    if (!range.contains(metres))
        depths->moveRange(metres - (metres < range.lower ? range.lower : range.upper));
}

void PlotView::FitTexts()
{
    FitTicks();
    FitTitles();
    FitMinimum();
}

/// As many values as have room beside each other.
void PlotView::FitTicks()
{
    constexpr int kMost = 4;
    const int text = fontMetrics().horizontalAdvance(QStringLiteral("-00000 "));
    const int across = width() / 2 - 4 * fontMetrics().height(); // without the depths
    for (auto* const rect : axisRects())
        rect->axis(QCPAxis::atBottom)->ticker()->setTickCount(qBound(1, across / text, kMost));
}

/// A title that ran into the other would make both unreadable.
void PlotView::FitTitles()
{
    const std::array<const PlotHalf*, 2> halves{&page_.a, &page_.b};
    const int across = width() / 2 - 3 * fontMetrics().height(); // without the depths
    for (int i = 0; i < axisRectCount(); ++i) {
        auto& values = *axisRect(i)->axis(QCPAxis::atBottom);
        values.setLabel(QFontMetrics(values.labelFont())
                            .elidedText(Text(halves.at(static_cast<std::size_t>(i))->title),
                                        Qt::ElideRight, across));
    }
}

/// The depths keep their room below a high legend, and large texts theirs beside each other.
void PlotView::FitMinimum()
{
    constexpr QSize kLeast(320, 200);
    constexpr int kCharacters = 38; // the longest name in either legend, with its line
    constexpr int kLines = 8;       // the values, their title, and depths above them
    const QSize texts(kCharacters * fontMetrics().averageCharWidth(),
                      FitLegends(*this) + kLines * fontMetrics().height());
    setMinimumSize(kLeast.expandedTo(texts));
}

void PlotView::resizeEvent(QResizeEvent* event)
{
    FitTexts();
    QCustomPlot::resizeEvent(event);
}

/// Who works by keys sees that they go to the plots.
void PlotView::paintEvent(QPaintEvent* event)
{
    QCustomPlot::paintEvent(event);
    if (!hasFocus()) return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void PlotView::mouseMoveEvent(QMouseEvent* event)
{
    QCustomPlot::mouseMoveEvent(event);
    if (auto* const rect = axisRectAt(event->position());
        rect != nullptr && event->buttons() == Qt::NoButton)
        Point(rect->axis(QCPAxis::atLeft)->pixelToCoord(event->position().y()) * kMetre);
}

void PlotView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QCustomPlot::mouseDoubleClickEvent(event);
    ShowAll();
}

void PlotView::changeEvent(QEvent* event)
{
    QCustomPlot::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Redraw();
}

} // namespace tarvex::survey
