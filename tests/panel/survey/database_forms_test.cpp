#include "panel/survey/database_forms_test.h"

#include "platform/sqlite/sqlite_engine.h"

#include <QApplication>
#include <QTest>

namespace tarvex::tests
{

std::unique_ptr<SurveyEngine> MakeTestEngine()
{
    return std::make_unique<platform::SqliteEngine>();
}

DatabaseFormsTest::~DatabaseFormsTest()
{
    DeleteClosed();
}

QWidget* DatabaseFormsTest::Find(const char* name)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == name) return window;
    return nullptr;
}

QWidget& DatabaseFormsTest::Window(const char* name)
{
    if (QWidget* window = Find(name)) return *window;
    std::string message = std::string("no window ") + name + "; there are:";
    for (const QWidget* window : QApplication::topLevelWidgets())
        message += " " + window->objectName().toStdString();
    throw std::runtime_error(message);
}

void DatabaseFormsTest::Press(const char* window, const char* button)
{
    QTest::mouseClick(&Control<QAbstractButton>(window, button), Qt::LeftButton);
}

std::string DatabaseFormsTest::Cell(int row, std::string_view field)
{
    const QModelIndex index = Grid().model()->index(row, static_cast<int>(FieldIndex(field)));
    return index.data().toString().toStdString();
}

void DatabaseFormsTest::Type(const char* keys)
{
    for (; *keys != '\0'; ++keys)
        QTest::keyClick(QApplication::focusWidget(), *keys);
    QCoreApplication::processEvents();
}

void DatabaseFormsTest::Type(Qt::Key key)
{
    QTest::keyClick(QApplication::focusWidget(), key);
    QCoreApplication::processEvents(); // an editor left by Enter commits in the next pass
}

void DatabaseFormsTest::DeleteClosed()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace tarvex::tests
