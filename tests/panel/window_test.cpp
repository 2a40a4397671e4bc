#include "panel/window_test.h"

#include <QApplication>
#include <QTabBar>

#include <stdexcept>

namespace tarvex::tests
{

WindowTest::WindowTest()
{
    window = std::make_unique<panel::MainWindow>(
        panel::CommandContext{panel, line, forms, fileDialog, folder / "dati"}, portNames, handlers,
        end);
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window.get()))
        throw std::runtime_error("the window does not become active");
}

WindowTest::~WindowTest() = default;

void WindowTest::ClickOn(const std::string& name)
{
    QTest::mouseClick(&Named(name), Qt::LeftButton);
}

void WindowTest::TypeInto(const std::string& name, const QString& text)
{
    QLineEdit& edit = Edit(name);
    Enter(name);
    edit.selectAll(); // as it is on entering
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::keyClicks(&edit, text);
}

void WindowTest::Enter(const std::string& name)
{
    Named(name).setFocus(Qt::OtherFocusReason);
}

void WindowTest::PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

std::string WindowTest::Focused() const
{
    const QWidget* focused = window->focusWidget();
    return focused == nullptr ? std::string() : focused->objectName().toStdString();
}

void WindowTest::ClickTab(int index)
{
    auto& strip = Named<QTabBar>("TabStrip1");
    QTest::mouseClick(&strip, Qt::LeftButton, {}, strip.tabRect(index - 1).center());
}

QWidget* WindowTest::Find(const std::string& name)
{
    return window->findChild<QWidget*>(QString::fromStdString(name));
}

void WindowTest::Missing(const std::string& name)
{
    std::string there;
    for (const QWidget* widget : window->findChildren<QWidget*>())
        there += " " + widget->objectName().toStdString();
    throw std::runtime_error("no fitting control " + name + " among:" + there);
}

} // namespace tarvex::tests
