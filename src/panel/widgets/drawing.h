#pragma once

#include <QPainter>
#include <QRectF>

#include <memory>

namespace tarvex::panel
{

/// One of the program's own drawings, sharp at every scale of the screen.
class Drawing
{
public:
    Drawing();
    ~Drawing();
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    /// True once there is something to draw.
    bool IsLoaded() const;

    /// Reads the drawing of that name, ":/tarvex/program.svg", from the program's resources.
    void Load(const char* name);

    /// Fills a place on the painter with it, in the painter's own units.
    void Render(QPainter& painter, const QRectF& place) const;

private:
    struct Lines;
    std::unique_ptr<Lines> lines_;
};

} // namespace tarvex::panel
