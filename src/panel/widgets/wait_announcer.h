#pragma once

#include "panel/widgets/paint_pause.h"

#include <QObject>
#include <QString>

namespace tarvex::panel
{

class Announcement;
class WaitGround;

/// Says when a wait for the unit begins, stalls, goes on and ends, and how far its exchange came.
class WaitAnnouncer final : public QObject
{
public:
    /// Follows the ground of the wait indicator, as its only listener. Both outlive this object.
    WaitAnnouncer(WaitGround& ground, Announcement& announcement);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Follow();
    QString HowFar() const;

    WaitGround& ground_;
    Announcement& announcement_;
    PaintPause pause_;
    bool stalled_ = false;
};

} // namespace tarvex::panel
