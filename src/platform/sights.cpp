#include "platform/sights.h"

#include "core/message_boxes.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>

namespace tarvex::platform
{

namespace
{

constexpr int kFieldSpokenOf = 1000;
constexpr int kField = 50;
constexpr int kWords = 1;

int WorthOf(const QWidget& control)
{
    if (control.property(kSpokenOf).toBool()) return kFieldSpokenOf;
    const bool field = qobject_cast<const QLineEdit*>(&control) != nullptr ||
                       qobject_cast<const QComboBox*>(&control) != nullptr;
    if (field) return kField;
    const bool words = qobject_cast<const QLabel*>(&control) != nullptr ||
                       qobject_cast<const QTabBar*>(&control) != nullptr;
    return words ? kWords : 0;
}

QRect TitleOf(const QWidget& window)
{
    QRect title = window.frameGeometry();
    title.setBottom(window.geometry().top() - 1);
    return title;
}

} // namespace

std::vector<Sight> SightsOf(const QWidget& window)
{
    std::vector<Sight> sights;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        const QRect shown = control->visibleRegion().boundingRect();
        const int worth = WorthOf(*control);
        if (worth > 0 && !shown.isEmpty())
            sights.push_back({QRect(control->mapToGlobal(shown.topLeft()), shown.size()), worth});
    }
    if (const QRect title = TitleOf(window); title.isValid()) sights.push_back({title, kWords});
    return sights;
}

} // namespace tarvex::platform
