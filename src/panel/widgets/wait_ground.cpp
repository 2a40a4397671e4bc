#include "panel/widgets/wait_ground.h"

#include <QPainter>

namespace tarvex::panel
{

WaitGround::WaitGround(QWidget* parent) : QWidget(parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
}

void WaitGround::paintEvent(QPaintEvent*)
{
    const QColor amber(0xff, 0xc9, 0x3c);
    const QColor edge(0x7a, 0x52, 0x00);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(amber);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
}

} // namespace tarvex::panel
