// The least that a program of this toolkit is: what the manager's start and memory are weighed
// against.

#include <QApplication>
#include <QWidget>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QWidget window;
    window.resize(951, 540); // as large as the main form
    window.show();
    return QApplication::exec();
}
