#include "panel/window/controls.h"

#include "panel/widgets/box_edit.h"
#include "panel/widgets/lent_focus.h"
#include "panel/widgets/look.h"
#include "panel/widgets/wait_ground.h"
#include "platform/text/qt_text.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>

namespace tarvex::panel
{

namespace
{

QWidget& ParentOf(const ControlRow& row, QWidget& window)
{
    auto* parent = window.findChild<QWidget*>(Literal(row.parent));
    return parent != nullptr ? *parent : window;
}

/// Takes the focus before it acts, also when a shortcut or an assistive tool presses it: the rule
/// of the field that is left has then run.
template <class Button>
QAbstractButton* MakeButton(const ControlRow& row, QWidget& parent)
{
    auto* button = new Button(Literal(row.caption), &parent);
    button->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(button, &QAbstractButton::pressed, button, [button] {
        if (button->window()->focusWidget() != button) button->setFocus(Qt::ShortcutFocusReason);
    });
    return button;
}

QLabel* MakeLabel(const ControlRow& row, QWidget& parent)
{
    auto* label = new QLabel(Literal(row.caption), &parent);
    label->setTextFormat(Qt::PlainText);
    if (row.kind == ControlKind::Heading) MakeHeading(*label);
    return label;
}

QWidget* MakeFrame(const ControlRow& row, QWidget& parent)
{
    if (!row.caption.empty()) return new QGroupBox(Literal(row.caption), &parent);
    auto* frame = new QWidget(&parent);
    QSizePolicy policy = frame->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // so that no tab changes the size of the window
    frame->setSizePolicy(policy);
    return frame;
}

QTabBar* MakeTabStrip(QWidget& parent)
{
    auto* strip = new QTabBar(&parent);
    strip->setFocusPolicy(Qt::StrongFocus);
    strip->setExpanding(false);
    for (const ControlRow& row : ControlTable())
        if (row.kind == ControlKind::Tab) strip->addTab(Literal(row.caption));
    return strip;
}

QWidget* MakeWidget(const ControlRow& row, ControlPanel& panel, QWidget& parent)
{
    switch (row.kind) {
    case ControlKind::Heading:
    case ControlKind::Label:
    case ControlKind::Hint:
        return MakeLabel(row, parent);
    case ControlKind::TextBox:
        return new BoxEdit(*TextBoxOf(row, panel), &parent);
    case ControlKind::Button:
        return MakeButton<QPushButton>(row, parent);
    case ControlKind::Option:
        return MakeButton<QRadioButton>(row, parent);
    case ControlKind::Frame:
        return MakeFrame(row, parent);
    case ControlKind::TabStrip:
        return MakeTabStrip(parent);
    case ControlKind::Shape:
        return new WaitGround(panel.waitIndicator.progress, &parent);
    case ControlKind::Picture:
        return new QWidget(&parent);
    case ControlKind::Tab:
        break;
    }
    return nullptr;
}

/// Shown, hidden, enabled and disabled as the model says.
void FollowControl(Control& control, QWidget& widget)
{
    auto follow = [&control, &widget, focus = LentFocus()]() mutable {
        focus.Enable(widget, control.Enabled());
        if (widget.isHidden() == control.Visible()) widget.setVisible(control.Visible());
        widget.update();
    };
    follow();
    control.Watch(follow);
    QObject::connect(&widget, &QObject::destroyed, [&control] { control.Unwatch(); });
}

void BindToModel(const ControlRow& row, ControlPanel& panel, QWidget& widget)
{
    if (auto* edit = dynamic_cast<BoxEdit*>(&widget)) {
        edit->setReadOnly(row.locked);
        if (row.paced) edit->Pace();
        if (row.later) edit->ShowLater();
    } else if (Control* control = ControlOf(row, panel)) {
        FollowControl(*control, widget);
    } else if (StartsHidden(row)) {
        widget.hide();
    }
}

void BindToBox(const ControlRow& row, QWidget& window, QWidget& widget)
{
    widget.setAccessibleName(Literal(AccessibleNameOf(row)));
    widget.setAccessibleDescription(Literal(AccessibleDescriptionOf(row)).simplified());
    if (row.kind != ControlKind::TextBox) return;
    for (const ControlRow& other : ControlTable()) {
        if (other.of != row.name) continue;
        if (auto* label = window.findChild<QLabel*>(Literal(other.name))) label->setBuddy(&widget);
    }
}

} // namespace

QWidget* MakeControl(const ControlRow& row, ControlPanel& panel, QWidget& window)
{
    QWidget* widget = MakeWidget(row, panel, ParentOf(row, window));
    if (widget == nullptr) return nullptr;
    widget->setObjectName(Literal(row.name));
    widget->setToolTip(Literal(row.toolTip));
    BindToModel(row, panel, *widget);
    BindToBox(row, window, *widget);
    return widget;
}

QWidget& ControlNamed(QWidget& window, std::string_view name)
{
    auto* widget = window.findChild<QWidget*>(Literal(name));
    Q_ASSERT_X(widget != nullptr, "ControlNamed", std::string(name).c_str());
    return *widget;
}

} // namespace tarvex::panel
