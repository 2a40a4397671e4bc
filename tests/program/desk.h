#pragma once

#include <QObject>
#include <QPoint>
#include <QProcess>
#include <QStringList>
#include <QWidget>

namespace tarvex::tests
{

/// The operator's hand and another program on a real desktop: pointer and keys go the way that
/// those of a mouse and a keyboard go, through the display server to the window. See
/// scripts/under-weston.
class Desk : public QObject
{
public:
    /// `form` is the window that the pointer is brought to.
    explicit Desk(QWidget* form);
    ~Desk() override;

    /// Brings the pointer over the middle of a control of the form; false while another window
    /// covers it.
    bool PointAt(const char* name);

    void Press();
    void Release();
    void Type(const QStringList& keys);

    /// Another program comes up, takes the activation, and leaves the control of that name in
    /// sight, with the pointer on it.
    void GoToAnotherProgram(const char* inSight);

    /// "press" and "activation" in the order in which they have reached the form since another
    /// program came up.
    QStringList order;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Reaches(QPoint onScreen);
    void FindForm();
    void EndOtherProgram();

    QWidget* form_;
    QPoint formOnScreen_;
    QPoint seenAt_; // the last place of the pointer on the form
    bool seen_ = false;
    QProcess otherProgram_;
};

} // namespace tarvex::tests
