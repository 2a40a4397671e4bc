// The least that a program of this toolkit is: an empty window with one line of text in each of the
// two fonts that the manager's windows use. What its start and memory are weighed against.

#include <QApplication>
#include <QFontDatabase>
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QWidget window;
    auto* text = new QLabel("A line of text");
    auto* fixed = new QLabel("A line of text");
    fixed->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(text);
    layout->addWidget(fixed);
    window.resize(951, 540); // as large as the main form
    window.show();
    return QApplication::exec();
}
