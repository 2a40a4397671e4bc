#include "panel/widgets/focus_mark.h"

#include "panel/widgets/look_palette.h"

#include <QApplication>
#include <QPainter>

namespace tarvex::panel
{

FocusMark::FocusMark(QWidget& window) : QFocusFrame(&window), window_(window)
{
    setObjectName("FocusMark");
    hide(); // a window without the keyboard has no control to mark
    following_ = connect(qApp, &QApplication::focusChanged, this,
                         [this](QWidget*, QWidget* focused) { Follow(focused); });
}

/// What the toolkit takes down after this moves the focus once more.
FocusMark::~FocusMark()
{
    disconnect(following_);
}

void FocusMark::Follow(QWidget* focused)
{
    const bool inside = focused != nullptr && window_.isAncestorOf(focused);
    setWidget(inside ? focused : nullptr);
}

void FocusMark::paintEvent(QPaintEvent*)
{
    constexpr qreal kThickness = 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(MarkColour(palette(), palette().color(QPalette::Base)), kThickness));
    const qreal inset = kThickness / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 3, 3);
}

} // namespace tarvex::panel
