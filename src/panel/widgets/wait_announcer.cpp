#include "panel/widgets/wait_announcer.h"

#include "panel/widgets/announcement.h"
#include "panel/widgets/wait_ground.h"

#include <QAccessible>
#include <QEvent>

#include <utility>

namespace tarvex::panel
{

WaitAnnouncer::WaitAnnouncer(WaitGround& ground, Announcement& announcement)
    : QObject(&ground), ground_(ground), announcement_(announcement), pause_([this] { Follow(); })
{
    ground_.installEventFilter(this);
    ground_.OnChange([this] { pause_.NoteChange(); });
}

bool WaitAnnouncer::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::ShowToParent) {
        stalled_ = false; // what the wait before has left to be said belongs to it
        announcement_.Say(QStringLiteral("Waiting for the unit"));
    }
    if (event->type() == QEvent::HideToParent)
        announcement_.Say(QStringLiteral("The wait has ended") + HowFar());
    return false;
}

void WaitAnnouncer::Follow()
{
    const ExchangeCount& count = ground_.Progress().Now();
    QAccessibleValueChangeEvent value(&ground_, count.done);
    QAccessible::updateAccessibility(&value);
    const bool stalled = count.stalled;
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
