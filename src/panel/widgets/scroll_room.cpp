#include "panel/widgets/scroll_room.h"

#include <QApplication>

namespace tarvex::panel
{

namespace
{
constexpr int kAround = 4; // pixels, for the focus mark
} // namespace

ScrollRoom::ScrollRoom(QWidget& content, QWidget& parent) : QScrollArea(&parent)
{
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(&content);
    setObjectName("Room");
    content.setObjectName("Content");
    following_ = connect(qApp, &QApplication::focusChanged, this,
                         [this](QWidget*, QWidget* focused) { Follow(focused); });
}

/// What the toolkit takes down after this moves the focus once more.
ScrollRoom::~ScrollRoom()
{
    disconnect(following_);
}

bool ScrollRoom::ShowsAll() const
{
    const QSize all = widget()->minimumSizeHint() + QSize(frameWidth(), frameWidth()) * 2;
    return all.boundedTo(size()) == all;
}

QSize ScrollRoom::sizeHint() const
{
    const int frames = 2 * frameWidth();
    return widget()->sizeHint().expandedTo(widget()->minimumSizeHint()) + QSize(frames, frames);
}

/// Small enough for a screen at the strongest magnification.
QSize ScrollRoom::minimumSizeHint() const
{
    return {48, 40};
}

/// The toolkit's own way would show the cursor of a field and not the field.
bool ScrollRoom::focusNextPrevChild(bool next)
{
    return QAbstractScrollArea::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

void ScrollRoom::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    Follow(window()->focusWidget());
}

void ScrollRoom::Follow(QWidget* focused)
{
    if (focused == nullptr || !widget()->isAncestorOf(focused)) return;
    const QSize room = viewport()->size();
    QRect part(focused->mapTo(widget(), QPoint()), focused->size().boundedTo(room));
    const QSize aside = (room - part.size()).boundedTo({2 * kAround, 2 * kAround}) / 2;
    part.adjust(-aside.width(), -aside.height(), aside.width(), aside.height());
    ensureVisible(part.center().x(), part.center().y(), part.width() / 2, part.height() / 2);
}

} // namespace tarvex::panel
