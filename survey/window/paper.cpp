#include "survey/window/paper.h"

#include <qcustomplot.h>

namespace tarvex::survey
{

void Paper::SetFont(double pixels, bool bold)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(100); // whole numbers only, so the painter scales it
    font.setBold(bold);
    painter_.setFont(font);
    scale_ = pixels / 100;
}

void Paper::TextAt(double x, double y, const QString& text)
{
    painter_.save();
    painter_.translate(x, y);
    painter_.scale(scale_, scale_);
    painter_.drawText(QPointF(0, 0), text);
    painter_.restore();
}

void Paper::Line(const QString& text)
{
    down_ += kLineHeight;
    TextAt(0, down_, text);
}

} // namespace tarvex::survey
