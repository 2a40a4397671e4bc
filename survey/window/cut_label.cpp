#include "survey/window/cut_label.h"

#include <QPainter>
#include <QStyle>

namespace tarvex::survey
{

CutLabel::CutLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void CutLabel::Say(const QString& words)
{
    setText(words);
    setToolTip(words);
}

void CutLabel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    style()->drawItemText(
        &painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
        fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()), foregroundRole());
}

} // namespace tarvex::survey
