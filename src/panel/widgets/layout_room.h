#pragma once

#include <QMargins>
#include <QPointer>
#include <QSize>

#include <vector>

class QLayout;
class QWidget;

namespace tarvex::panel
{

/// The room that the layouts of a window leave between and around its contents, as it was when this
/// was made.
class LayoutRoom
{
public:
    /// Notes what all layouts below the window have now.
    explicit LayoutRoom(QWidget& window);

    /// Leaves `share` (0 to 1) of that room, but nowhere so little that a focus mark is cut off.
    void Keep(double share);

private:
    struct Layout {
        QPointer<QLayout> layout;
        QSize spacing; ///< beside and below each content
        QMargins margins;
    };
    std::vector<Layout> layouts_;
};

} // namespace tarvex::panel
