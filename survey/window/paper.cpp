#include "survey/window/paper.h"

#include <QFontMetricsF>

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

double Paper::WidthOf(const QString& text) const
{
    return QFontMetricsF(painter_.font()).horizontalAdvance(text) * scale_;
}

void Paper::TextAt(double x, double y, const QString& text)
{
    painter_.save();
    painter_.translate(x, y);
    painter_.scale(scale_, scale_);
    painter_.drawText(QPointF(0, 0), text);
    painter_.restore();
}

QStringList Paper::Wrapped(const QString& text, qsizetype most) const
{
    if (text.isEmpty()) return {};
    QStringList lines{QString()};
    for (const auto& word : text.split(QLatin1Char(' '))) {
        const auto longer = lines.last().isEmpty() ? word : lines.last() + QLatin1Char(' ') + word;
        if (WidthOf(longer) <= Width() || lines.last().isEmpty())
            lines.last() = longer;
        else
            lines += word;
    }
    const bool cut = lines.size() > most;
    if (cut)
        lines = lines.mid(0, most - 1) + QStringList(lines.mid(most - 1).join(QLatin1Char(' ')));
    for (auto& line : lines) // also a word that is wider than the sheet
        line = QFontMetricsF(painter_.font()).elidedText(line, Qt::ElideRight, Width() / scale_);
    return lines;
}

void Paper::Lines(const QString& text, qsizetype most)
{
    for (const auto& line : Wrapped(text, most)) {
        down_ += kLineHeight;
        TextAt(0, down_, line);
    }
}

} // namespace tarvex::survey
