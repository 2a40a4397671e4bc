#include "program/typed_name.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>

namespace tarvex::tests
{

TypedName::TypedName(const QString& name) : name_(name)
{
    connect(&timer_, &QTimer::timeout, this, &TypedName::Answer);
    timer_.start(50);
}

void TypedName::Answer()
{
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    timer_.stop();
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(name_);
    static_cast<QDialog*>(dialog)->accept();
}

} // namespace tarvex::tests
