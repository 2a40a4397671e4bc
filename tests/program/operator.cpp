#include "program/operator.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QtTest>

#include <stdexcept>
#include <string>

namespace tarvex::tests
{

namespace
{
constexpr int kBoxInterval = 20; // milliseconds
constexpr const char* kSeen = "seen by the watcher of boxes";
} // namespace

void Operator::Click(const char* name) const
{
    auto* button = Find<QAbstractButton>(name);
    if (!button->isVisible()) Missing(name);
    QTest::mouseClick(button, Qt::LeftButton);
}

void Operator::ClickLater(const char* name, int milliseconds) const
{
    auto* button = Find<QAbstractButton>(name);
    QTimer::singleShot(milliseconds, button,
                       [button] { QTest::mouseClick(button, Qt::LeftButton); });
}

void Operator::Type(const char* name, const QString& text) const
{
    auto* box = Find<QLineEdit>(name);
    if (!box->isVisible()) Missing(name);
    QTest::mouseClick(box, Qt::LeftButton);
    box->selectAll();
    QTest::keyClicks(box, text);
}

void Operator::ShowTab(int index) const
{
    auto* tabs = Find<QTabBar>("TabStrip1");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index - 1).center());
}

void Operator::ChooseService(const QString& entry) const
{
    form_->activateWindow(); // a window closed a moment ago may still have the keyboard
    if (!QTest::qWaitForWindowActive(form_)) throw std::logic_error("the window is not active");
    QTest::keyClick(form_, Qt::Key_F12, Qt::ControlModifier);
    QMenu* list = nullptr;
    WaitFor([&] {
        list = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return list != nullptr;
    });
    if (list == nullptr) throw std::logic_error("the service list does not pop up");
    for (QAction* action : list->actions()) {
        if (action->text() != entry) continue;
        list->close();
        return action->trigger();
    }
    throw std::logic_error("no entry " + entry.toStdString() + " in the service list");
}

QString Operator::Text(const char* name) const
{
    return Find<QLineEdit>(name)->text();
}

bool Operator::IsShown(const char* name) const
{
    return Find<QWidget>(name)->isVisible();
}

void Operator::Missing(const char* name) const
{
    std::string there;
    for (const QWidget* widget : form_->findChildren<QWidget*>()) {
        if (!widget->objectName().isEmpty()) {
            there +=
                " " + widget->objectName().toStdString() + (widget->isVisible() ? "" : "(hidden)");
        }
    }
    throw std::logic_error(std::string("no ") + name + " to be reached; there is:" + there);
}

BoxWatcher::BoxWatcher()
{
    connect(&timer_, &QTimer::timeout, this, &BoxWatcher::AnswerBox);
    timer_.start(kBoxInterval);
}

void BoxWatcher::AnswerBox()
{
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible()) return;
    // On a busy machine a box may outlive the click; it is still the same box, and answered again.
    if (!box->property(kSeen).toBool()) {
        box->setProperty(kSeen, true);
        texts.append(box->text());
        if (beforeAnswer) beforeAnswer(box);
    }
    QPushButton* answer = box->defaultButton();
    if (answer == nullptr) answer = qobject_cast<QPushButton*>(box->buttons().constFirst());
    QTest::mouseClick(answer, Qt::LeftButton);
}

QWidget* ShownForm(const char* name)
{
    QWidget* form = nullptr;
    WaitFor([&] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String(name) && window->isVisible()) form = window;
        }
        return form != nullptr;
    });
    if (form == nullptr) throw std::runtime_error(std::string("no form ") + name);
    return form;
}

bool WaitFor(const std::function<bool()>& condition, int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > milliseconds) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(1);
    }
    return true;
}

} // namespace tarvex::tests
