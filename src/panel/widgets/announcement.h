#pragma once

#include "core/exchange_progress.h"

#include <QObject>
#include <QString>

class QWidget;

namespace tarvex::panel
{

class WaitGround;

/// What a window says to an operator who does not see it. Nothing of it is on the screen: assistive
/// tools find it below the window as a notification, and speak its words when they change.
class Announcement final : public QObject
{
public:
    /// Belongs to the window and says nothing yet.
    explicit Announcement(QWidget& window);

    /// The one of that window, or null.
    static Announcement* Of(const QWidget& window);

    /// Has these words spoken, also when they are the same again.
    void Say(const QString& words);

    /// What was said last.
    const QString& Words() const { return words_; }

private:
    QString words_;
};

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
    bool stalled_ = false;
};

} // namespace tarvex::panel
