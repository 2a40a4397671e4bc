#include "survey/window/fit_screen.h"

#include <QApplication>
#include <QScreen>

namespace tarvex::survey
{

QSize FreeSize(const QWidget& inWindow)
{
    constexpr QSize kFrame(8, 36); // what window managers put around; known only once it is there
    return inWindow.screen()->availableSize() - kFrame;
}

Room::Room(QWidget* contents, QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(contents);
    following_ = connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now != nullptr && widget()->isAncestorOf(now)) Show(*now);
    });
}

/// The contents go after this, and the focus moves once more.
Room::~Room()
{
    disconnect(following_);
}

/// Its beginning, where it is larger than the room.
void Room::Show(const QWidget& control)
{
    const QRect part(control.mapTo(widget(), QPoint()),
                     control.size().boundedTo(viewport()->size()));
    ensureVisible(part.right(), part.bottom(), 0, 0);
    ensureVisible(part.left(), part.top(), 0, 0);
}

QSize Room::minimumSizeHint() const
{
    return {48, 36};
}

} // namespace tarvex::survey
