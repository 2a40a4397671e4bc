#include "panel/survey/form4.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace tarvex::panel
{

namespace
{
constexpr QSize kButton(320, 48); // for a finger or a trackball in the field
} // namespace

Form4::Form4(Handlers& handlers, const Actions& actions, QWidget* parent)
    : QWidget(parent, Qt::Dialog), handlers_(handlers)
{
    setObjectName("Form4");
    setWindowTitle("Control panel DB Tar Vex");
    setAttribute(Qt::WA_DeleteOnClose);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->setSpacing(12);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    AddButton("ssCommand2", "Read Headers", actions.readHeaders);
    AddButton("Command1", "Write Headers", actions.writeHeaders);
    AddButton("Command2", "Display Batabase", actions.displayDatabase);
    findChild<QWidget*>("Command2")->setFocus(); // the others write
}

/// The handler may run while the form is closed and deleted: it takes along what it needs.
void Form4::AddButton(const char* name, const char* caption, std::function<void()> action)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setMinimumSize(kButton);
    connect(button, &QPushButton::clicked, this,
            [handlers = &handlers_, action = std::move(action)] { handlers->Run(action); });
    layout()->addWidget(button);
}

} // namespace tarvex::panel
