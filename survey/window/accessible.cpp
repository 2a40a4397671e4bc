#include "survey/window/accessible.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QVariant>

namespace tarvex::survey
{

namespace
{
constexpr const char* kSpoken = "spoken";

QAccessibleInterface* Make(const QString& className, QObject* object)
{
    if (className == QLatin1String("QCustomPlot"))
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Chart);
    if (className != QLatin1String("QLabel") || !object->property(kSpoken).toBool()) return nullptr;
    return new QAccessibleWidget(static_cast<QLabel*>(object), QAccessible::Notification);
}
} // namespace

void MakeSpoken(QLabel& label)
{
    QAccessible::installFactory(Make);
    label.setProperty(kSpoken, true);
}

/// Some tools speak a name that changes, others a notification that comes up.
void Announce(QLabel& label)
{
    label.setAccessibleName(label.text());
    QAccessibleEvent shown(&label, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

} // namespace tarvex::survey
