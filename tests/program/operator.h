#pragma once

#include <QAbstractButton>
#include <QLineEdit>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace tarvex::tests
{

/// Works a window of the program as its operator does: finds controls by their object names, types
/// keys and clicks. A control that is not there, or not to be reached, ends the test with what is
/// there.
class Operator
{
public:
    /// `form` is the window whose controls are meant.
    explicit Operator(QWidget* form) : form_(form) {}

    template <class Widget>
    Widget* Find(const char* name) const
    {
        auto* widget = form_->findChild<Widget*>(QLatin1String(name));
        if (widget == nullptr) Missing(name);
        return widget;
    }

    /// A mouse click on a button; returns when its command has ended.
    void Click(const char* name) const;

    /// A click that is made while events run, for what must happen inside a wait.
    void ClickLater(const char* name, int milliseconds) const;

    /// Goes into a box with the mouse and types over what it holds.
    void Type(const char* name, const QString& text) const;

    /// Shows the tab with that index, from 1.
    void ShowTab(int index) const;

    /// Pops up the service list and chooses the entry of that text; returns when its command has
    /// ended.
    void ChooseService(const QString& entry) const;

    QString Text(const char* name) const;
    bool IsShown(const char* name) const;

private:
    [[noreturn]] void Missing(const char* name) const;

    QWidget* form_;
};

/// Answers every message box with its default button, and remembers the texts in order.
class BoxWatcher : public QObject
{
public:
    BoxWatcher();

    QStringList texts;

    /// Run while a box is open, before it is answered.
    std::function<void(QWidget* box)> beforeAnswer;

private:
    void AnswerBox();

    QTimer timer_;
};

/// The window of that object name, once it is on view; ends the test when it does not come.
QWidget* ShownForm(const char* name);

/// Runs events until `condition` holds; false when it does not within the time.
bool WaitFor(const std::function<bool()>& condition, int milliseconds = 5000);

} // namespace tarvex::tests
