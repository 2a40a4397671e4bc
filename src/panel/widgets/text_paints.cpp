#include "panel/widgets/text_paints.h"

#include <QPaintEvent>
#include <QStyle>

namespace tarvex::panel
{

TextPaints::TextPaints(QLabel& label) : QObject(&label), label_(label)
{
    label.installEventFilter(this);
}

bool TextPaints::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::Paint) return false;
    return !static_cast<QPaintEvent*>(event)->rect().intersects(TextRoom());
}

/// Letters may reach over the room of their line a little.
const QRect& TextPaints::TextRoom()
{
    const bool isKnown = label_.size() == size_ && label_.font() == font_ && label_.text() == text_;
    if (isKnown) return room_;
    size_ = label_.size();
    font_ = label_.font();
    text_ = label_.text();
    const int margin = label_.margin();
    const QRect place = label_.contentsRect().adjusted(margin, margin, -margin, -margin);
    const int wrap = label_.wordWrap() ? Qt::TextWordWrap : 0;
    const QFontMetrics metrics = label_.fontMetrics();
    const int over = metrics.averageCharWidth();
    room_ =
        label_.style()
            ->itemTextRect(metrics, place, static_cast<int>(label_.alignment()) | wrap, true, text_)
            .adjusted(-over, -over, over, over);
    return room_;
}

} // namespace tarvex::panel
