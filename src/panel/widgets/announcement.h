#pragma once

#include <QObject>
#include <QString>

class QWidget;

namespace tarvex::panel
{

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

} // namespace tarvex::panel
