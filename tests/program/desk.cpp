#include "program/desk.h"

#include "program/operator.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

#include <stdexcept>
#include <string>
#include <utility>

namespace tarvex::tests
{

namespace
{

constexpr int kPatience = 10'000; // milliseconds
constexpr int kGlance = 1'000;    // for a pointer that may well be over another window

void Do(const QStringList& action)
{
    if (QProcess::execute("xdotool", action) != 0)
        throw std::runtime_error("xdotool cannot " + action.join(' ').toStdString());
}

} // namespace

Desk::Desk(QWidget* form) : form_(form)
{
    QCoreApplication::instance()->installEventFilter(this);
    FindForm();
}

Desk::~Desk()
{
    EndOtherProgram();
}

void Desk::EndOtherProgram()
{
    otherProgram_.kill();
    otherProgram_.waitForFinished();
}

/// No client of the desktop learns where its window is; the pointer finds it. The form takes more
/// than half of the screen each way.
void Desk::FindForm()
{
    const QRect screen = form_->screen()->geometry();
    if (!Reaches(screen.center())) throw std::runtime_error("the form is not on the screen");
    formOnScreen_ = screen.center() - seenAt_;
}

bool Desk::Reaches(QPoint onScreen)
{
    Do({"mousemove", "0", "0"});
    WaitFor([this] { return std::exchange(seen_, false); }, 20);
    Do({"mousemove", QString::number(onScreen.x()), QString::number(onScreen.y())});
    return WaitFor([this] { return seen_; }, kGlance);
}

bool Desk::PointAt(const char* name)
{
    auto* control = form_->findChild<QWidget*>(QLatin1String(name));
    if (control == nullptr) throw std::logic_error(std::string("no control ") + name);
    const QPoint place = control->mapTo(form_, control->rect().center());
    return Reaches(formOnScreen_ + place) && seenAt_ == place;
}

void Desk::Press()
{
    Do({"mousedown", "1"});
}

void Desk::Release()
{
    Do({"mouseup", "1"});
}

void Desk::Type(const QStringList& keys)
{
    Do(QStringList("key") + keys);
}

void Desk::GoToAnotherProgram(const char* inSight)
{
    for (int attempt = 0; attempt < 20; ++attempt) { // the desktop puts a window anywhere
        otherProgram_.start("weston-simple-shm", QStringList());
        if (!WaitFor([this] { return !form_->isActiveWindow(); }, kPatience))
            throw std::runtime_error("no other program takes the activation");
        order.clear();
        if (PointAt(inSight)) return;
        EndOtherProgram();
        if (!WaitFor([this] { return form_->isActiveWindow(); }, kPatience))
            throw std::runtime_error("the activation does not come back");
    }
    throw std::runtime_error("the control is never in sight");
}

bool Desk::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == form_->windowHandle()) {
        if (event->type() == QEvent::MouseMove || event->type() == QEvent::Enter) {
            seenAt_ = static_cast<QSinglePointEvent*>(event)->position().toPoint();
            seen_ = true;
        }
        if (event->type() == QEvent::MouseButtonPress) order << "press";
    }
    if (watched == form_ && event->type() == QEvent::WindowActivate) order << "activation";
    return false;
}

} // namespace tarvex::tests
