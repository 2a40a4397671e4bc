#include "panel/widgets/fit_screen.h"

#include "panel/widgets/layout_room.h"
#include "panel/widgets/scroll_room.h"

#include <QFontMetrics>
#include <QLayout>
#include <QPointer>
#include <QScreen>
#include <QVBoxLayout>
#include <QWidget>

#include <algorithm>

namespace tarvex::panel
{

namespace
{

constexpr QSize kFrame(8, 36); // what window managers put around; known only once it is there
constexpr int kTitleButtons = 160;

int TitleWidth(const QWidget& window)
{
    QFont font = window.font();
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(window.windowTitle()) + kTitleButtons;
}

QSize LeastSize(const QWidget& window)
{
    return window.minimumSizeHint().expandedTo(window.minimumSize());
}

bool Holds(QSize room, QSize content)
{
    return content.boundedTo(room) == content;
}

/// Whether all that the window holds is in sight at that size.
bool ShowsAll(QWidget& window, QSize size)
{
    if (!Holds(size, LeastSize(window))) return false;
    window.resize(size);
    window.layout()->activate();
    const QList<ScrollRoom*> rooms = window.findChildren<ScrollRoom*>();
    return std::ranges::all_of(rooms, [](const ScrollRoom* room) { return room->ShowsAll(); });
}

/// Puts all that the window holds into a room that scrolls.
void MakeScrollable(QWidget& window)
{
    const QPointer<QWidget> focused = window.focusWidget(); // the move takes it away
    QLayout* layout = window.layout();
    layout->setSizeConstraint(QLayout::SetDefaultConstraint);
    window.setMinimumSize(0, 0);
    window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    auto* content = new QWidget(&window);
    content->setLayout(layout);
    auto* room = new QVBoxLayout(&window);
    room->setContentsMargins(0, 0, 0, 0);
    room->addWidget(new ScrollRoom(*content, window));
    if (focused) focused->setFocus();
}

void GiveWay(QWidget& window)
{
    if (window.findChild<ScrollRoom*>() == nullptr) return MakeScrollable(window);
    window.layout()->setSizeConstraint(QLayout::SetNoConstraint); // what can scroll does so
    window.setMinimumSize(0, 0);
}

} // namespace

QSize FreeSize(const QWidget& window)
{
    const QWidget& place = window.parentWidget() == nullptr ? window : *window.parentWidget();
    return place.screen()->availableSize() - kFrame;
}

void FitToScreen(QWidget& window, QSize least)
{
    const QSize free = FreeSize(window);
    window.ensurePolished();
    const QSize given = window.testAttribute(Qt::WA_Resized) ? window.size() : QSize();
    const QSize wanted =
        window.sizeHint().expandedTo(least).expandedTo(given).expandedTo({TitleWidth(window), 0});
    LayoutRoom room(window);
    for (const double share : {1.0, 0.75, 0.5, 0.25}) {
        room.Keep(share);
        if (ShowsAll(window, wanted.boundedTo(free))) break;
    }
    if (!Holds(free, LeastSize(window))) GiveWay(window);
    window.setMinimumWidth(std::min({TitleWidth(window), free.width(), wanted.width()}));
    window.resize(wanted.boundedTo(free));
}

} // namespace tarvex::panel
