#include "panel/widgets/layout_room.h"

#include <QGridLayout>
#include <QWidget>

#include <algorithm>

namespace tarvex::panel
{

namespace
{

constexpr int kForMark = 4; // pixels

QSize SpacingOf(const QLayout& layout)
{
    if (const auto* grid = qobject_cast<const QGridLayout*>(&layout))
        return {grid->horizontalSpacing(), grid->verticalSpacing()};
    return {layout.spacing(), layout.spacing()};
}

void SetSpacing(QLayout& layout, QSize spacing)
{
    auto* grid = qobject_cast<QGridLayout*>(&layout);
    if (grid == nullptr) return layout.setSpacing(spacing.height());
    grid->setHorizontalSpacing(spacing.width());
    grid->setVerticalSpacing(spacing.height());
}

int Kept(int room, double share)
{
    return std::max(std::min(room, kForMark), qRound(room * share));
}

} // namespace

LayoutRoom::LayoutRoom(QWidget& window)
{
    for (QLayout* layout : window.findChildren<QLayout*>())
        layouts_.push_back({layout, SpacingOf(*layout), layout->contentsMargins()});
}

void LayoutRoom::Keep(double share)
{
    for (const auto& [layout, spacing, margins] : layouts_) {
        if (layout == nullptr) continue;
        SetSpacing(*layout, {Kept(spacing.width(), share), Kept(spacing.height(), share)});
        layout->setContentsMargins(Kept(margins.left(), share), Kept(margins.top(), share),
                                   Kept(margins.right(), share), Kept(margins.bottom(), share));
    }
}

} // namespace tarvex::panel
