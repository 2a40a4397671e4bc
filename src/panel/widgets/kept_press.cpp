#include "panel/widgets/kept_press.h"

#include <QAbstractButton>
#include <QMouseEvent>

#include <utility>

namespace tarvex::panel
{

bool KeptPress::Takes(QObject& widget, const QEvent& press)
{
    if (!std::exchange(boxShown_, false)) return false;
    auto* button = qobject_cast<QAbstractButton*>(&widget);
    if (button == nullptr || static_cast<const QMouseEvent&>(press).button() != Qt::LeftButton)
        return false;
    button->click();
    return true;
}

} // namespace tarvex::panel
