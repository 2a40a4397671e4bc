#include "panel/widgets/keyboard.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QTabBar>

#include <utility>

namespace tarvex::panel
{

namespace
{

bool IsReturn(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool IsPlain(const QKeyEvent& key)
{
    return (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

bool ActsOnce(const QKeyEvent& key)
{
    return IsReturn(key) || key.key() == Qt::Key_Escape || key.key() == Qt::Key_F1;
}

bool Press(QWidget& widget)
{
    auto* button = qobject_cast<QAbstractButton*>(&widget);
    if (button != nullptr) button->click();
    return button != nullptr;
}

/// A modal box has an Escape of its own, which may be an answer.
bool IsSideWindow(const QWidget& window)
{
    return window.windowType() == Qt::Dialog && !window.isModal();
}

bool TurnTabs(const QWidget& window, int by)
{
    auto* tabs = window.findChild<QTabBar*>();
    if (tabs == nullptr || !tabs->isVisible()) return false;
    tabs->setCurrentIndex((tabs->currentIndex() + by + tabs->count()) % tabs->count());
    return true;
}

} // namespace

Keyboard::Keyboard(std::function<void()> help) : help_(std::move(help))
{
    QCoreApplication::instance()->installEventFilter(this);
}

/// A key goes from the control with the focus up to its window, until one of them takes it.
bool Keyboard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    auto& widget = static_cast<QWidget&>(*watched);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.isAutoRepeat() && ActsOnce(key)) return true;
    if (IsReturn(key) && IsPlain(key) && Press(widget)) return true;
    return widget.isWindow() && ActOnWindow(widget, key);
}

bool Keyboard::ActOnWindow(QWidget& window, const QKeyEvent& key)
{
    const bool turning = key.modifiers() == Qt::ControlModifier;
    if (turning && key.key() == Qt::Key_PageUp) return TurnTabs(window, -1);
    if (turning && key.key() == Qt::Key_PageDown) return TurnTabs(window, 1);
    if (!IsPlain(key)) return false;
    if (key.key() == Qt::Key_F1) help_();
    if (key.key() == Qt::Key_Escape && IsSideWindow(window)) return window.close(), true;
    return key.key() == Qt::Key_F1;
}

} // namespace tarvex::panel
