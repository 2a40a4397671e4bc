#include "panel/kept_press.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QMouseEvent>

#include <utility>

namespace tarvex::panel
{

KeptPress::KeptPress()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool KeptPress::eventFilter(QObject* watched, QEvent* event)
{
    const bool press =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!boxShown_ || !press || !watched->isWidgetType()) return false;
    boxShown_ = false;
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (button == nullptr || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
        return false;
    button->click();
    return true;
}

} // namespace tarvex::panel
