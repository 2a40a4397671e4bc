#include "survey/window/paper_parts.h"

#include "survey/window/plotter.h"

#include <qcustomplot.h>

namespace tarvex::survey
{

void DrawPlots(Paper& paper, const PictureSubject& subject, double height)
{
    QCustomPlot plot;
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    plot.setFont(font);
    Draw(plot, PagesOf(subject), {}, Arrangement::OneAboveTheOther);
    for (auto* const rect : plot.axisRects())
        for (auto* const axis : rect->axes()) {
            axis->setLabelFont(font);
            axis->setTickLabelFont(font);
        }
    auto& painter = paper.Painter();
    painter.save();
    // Drawn larger and then made smaller, so that lines and letters are fine enough for paper.
    constexpr double kFiner = 1.6;
    painter.translate(0, paper.Down());
    painter.scale(1 / kFiner, 1 / kFiner);
    plot.toPainter(&painter, static_cast<int>(paper.Width() * kFiner),
                   static_cast<int>(height * kFiner));
    painter.restore();
    paper.Skip(height);
}

} // namespace tarvex::survey
