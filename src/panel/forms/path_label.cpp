#include "panel/forms/path_label.h"

#include <QPainter>
#include <QStyle>

namespace tarvex::panel
{

PathLabel::PathLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void PathLabel::ShowPath(const QString& path)
{
    setText(path);
    setToolTip(path);
}

// The window's width never depends on the path.
QSize PathLabel::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 40, QLabel::sizeHint().height()};
}

QSize PathLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 10, QLabel::minimumSizeHint().height()};
}

void PathLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                          isEnabled(), shown, foregroundRole());
}

} // namespace tarvex::panel
