#include "panel/forms/forms_test.h"

#include <QApplication>
#include <QTest>

#include <filesystem>

namespace tarvex::tests
{

FormsTest::FormsTest()
{
    using std::filesystem::perms;
    std::filesystem::permissions(folder.Path(), perms::owner_all | perms::group_read |
                                                    perms::group_exec | perms::others_read |
                                                    perms::others_exec);
}

FormsTest::~FormsTest()
{
    DeleteClosed();
}

std::vector<QWidget*> FormsTest::WindowsNamed(const char* name)
{
    std::vector<QWidget*> found;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == name) found.push_back(window);
    return found;
}

QWidget& FormsTest::Window(const char* name)
{
    const auto found = WindowsNamed(name);
    if (found.size() == 1) return *found.front();
    std::string message = std::to_string(found.size()) + " windows named " + name + "; there are:";
    for (const QWidget* window : QApplication::topLevelWidgets())
        message += " " + window->objectName().toStdString();
    throw std::runtime_error(message);
}

void FormsTest::Press(const char* window, const char* button)
{
    QTest::mouseClick(&Control<QAbstractButton>(window, button), Qt::LeftButton);
}

bool FormsTest::Comes(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 30'000);
}

void FormsTest::DeleteClosed()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace tarvex::tests
