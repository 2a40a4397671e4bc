#include "panel/widgets/drawing.h"

#include <QSvgRenderer>

namespace tarvex::panel
{

struct Drawing::Lines {
    QSvgRenderer renderer;
};

Drawing::Drawing() : lines_(std::make_unique<Lines>()) {}

Drawing::~Drawing() = default;

bool Drawing::IsLoaded() const
{
    return lines_->renderer.isValid();
}

void Drawing::Load(const char* name)
{
    lines_->renderer.load(QString::fromLatin1(name));
}

void Drawing::Render(QPainter& painter, const QRectF& place) const
{
    lines_->renderer.render(&painter, place);
}

} // namespace tarvex::panel
