#include "panel/widgets/announcement.h"

#include <QAccessible>
#include <QWidget>

namespace tarvex::panel
{

namespace
{

constexpr const char* kName = "Announcement";

void Tell(QObject& object, QAccessible::Event what)
{
    QAccessibleEvent event(&object, what);
    QAccessible::updateAccessibility(&event);
}

} // namespace

Announcement::Announcement(QWidget& window) : QObject(&window)
{
    setObjectName(kName);
}

Announcement* Announcement::Of(const QWidget& window)
{
    return dynamic_cast<Announcement*>(
        window.findChild<QObject*>(kName, Qt::FindDirectChildrenOnly));
}

/// Some tools speak a name that changes, others a notification that comes up.
void Announcement::Say(const QString& words)
{
    words_ = words;
    Tell(*this, QAccessible::NameChanged);
    Tell(*this, QAccessible::ObjectShow);
}

} // namespace tarvex::panel
