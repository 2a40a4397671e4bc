#include "panel/widgets/port_options.h"

#include "panel/widgets/tip_text.h"
#include "platform/text/qt_text.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QEvent>
#include <QWidget>

namespace tarvex::panel
{

namespace
{

constexpr int kPorts = 4;

} // namespace

PortOptions::PortOptions(QWidget& window, OptionGroup& group, PortNames& names)
    : group_(group), names_(names)
{
    buttons_.setObjectName("ssOption1");
    for (int index = 0; index < kPorts; ++index) {
        auto* button = window.findChild<QAbstractButton*>(QString("ssOption1_%1").arg(index));
        buttons_.addButton(button, index);
        button->installEventFilter(this);
    }
    window.installEventFilter(this);
    if (auto* wait = window.findChild<QWidget*>("Shape1")) wait->installEventFilter(this);
    group_.Watch([this] { ShowSelected(); });
    ShowSelected();
}

PortOptions::~PortOptions()
{
    group_.Unwatch();
}

void PortOptions::ShowSelected()
{
    if (QAbstractButton* button = buttons_.button(group_.Selected())) button->setChecked(true);
}

/// Asked for anew whenever somebody looks: adapters come and go. An assistive tool reads what is
/// there without a sign of its looking.
bool PortOptions::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (auto* button = qobject_cast<QAbstractButton*>(watched)) {
        const bool heard = type == QEvent::Show && QAccessible::isActive();
        if (heard || type == QEvent::ToolTip || type == QEvent::FocusIn) Describe(*button);
    } else if (type == QEvent::WindowActivate || type == QEvent::HideToParent) {
        if (QAccessible::isActive()) DescribeAll();
    }
    return false;
}

void PortOptions::DescribeAll()
{
    for (QAbstractButton* button : buttons_.buttons())
        if (button->isVisible()) Describe(*button);
}

void PortOptions::Describe(QAbstractButton& button)
{
    const QString text = Literal(names_.Describe(buttons_.id(&button) + 1));
    button.setToolTip(TipText(text));
    button.setAccessibleDescription(text);
}

} // namespace tarvex::panel
