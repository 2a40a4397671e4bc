#include "panel/widgets/announcement.h"

#include "panel/widgets/wait_ground.h"

#include <QAccessible>
#include <QEvent>
#include <QWidget>

#include <utility>

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

WaitAnnouncer::WaitAnnouncer(WaitGround& ground, Announcement& announcement)
    : QObject(&ground), ground_(ground), announcement_(announcement)
{
    ground_.installEventFilter(this);
    ground_.OnChange([this] { Follow(); });
}

bool WaitAnnouncer::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::ShowToParent)
        announcement_.Say(QStringLiteral("Waiting for the unit"));
    if (event->type() == QEvent::HideToParent)
        announcement_.Say(QStringLiteral("The wait has ended") + HowFar());
    return false;
}

void WaitAnnouncer::Follow()
{
    Tell(ground_, QAccessible::ValueChanged);
    const bool stalled = ground_.Progress().Now().stalled;
    if (stalled == std::exchange(stalled_, stalled) || ground_.isHidden()) return;
    announcement_.Say(stalled ? QStringLiteral("Nothing comes from the unit") + HowFar()
                              : QStringLiteral("The unit answers again"));
}

/// Nothing where the command does not count its exchanges.
QString WaitAnnouncer::HowFar() const
{
    const ExchangeCount& count = ground_.Progress().Now();
    if (!ground_.Progress().UnderWay() || count.expected == 0) return {};
    return QStringLiteral(": %1 of %2 exchanges done").arg(count.done).arg(count.expected);
}

} // namespace tarvex::panel
