#include "panel/widgets/drawing.h"

#include <QImage>
#include <QPaintDevice>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tarvex::panel
{

namespace
{

/// The widths in which the build has rendered each drawing, as far as it has.
constexpr int kWidths[] = {16, 24, 32, 48, 64, 96, 128, 256, 480, 960, 1440};

int PixelsWide(const QPainter& painter, const QRectF& place)
{
    return static_cast<int>(std::ceil(painter.combinedTransform().mapRect(place).width() - 0.01));
}

} // namespace

struct Drawing::Lines {
    std::vector<QImage> pictures; // narrow ones first

    /// The one that loses nothing when it is made smaller.
    const QImage& For(int width) const
    {
        const auto wide = std::ranges::find_if(
            pictures, [&](const QImage& picture) { return picture.width() >= width; });
        return wide != pictures.end() ? *wide : pictures.back();
    }
};

Drawing::Drawing() : lines_(std::make_unique<Lines>()) {}

Drawing::~Drawing() = default;

bool Drawing::IsLoaded() const
{
    return !lines_->pictures.empty();
}

void Drawing::Load(const char* name)
{
    for (const int width : kWidths) {
        QImage picture(QStringLiteral("%1/%2.png").arg(QLatin1String(name)).arg(width));
        if (!picture.isNull()) lines_->pictures.push_back(std::move(picture));
    }
}

void Drawing::Render(QPainter& painter, const QRectF& place) const
{
    if (!IsLoaded()) return;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, lines_->For(PixelsWide(painter, place)));
}

} // namespace tarvex::panel
