#include "panel/widgets/field_leaving.h"

#include "panel/widgets/box_edit.h"
#include "panel/widgets/noted_boxes.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QPointer>

#include <utility>

namespace tarvex::panel
{

namespace
{

bool IsPress(const QEvent& event)
{
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
}

} // namespace

FieldLeaving::FieldLeaving(Handlers& handlers, MessageBoxes& messages)
    : handlers_(handlers), messages_(messages)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void FieldLeaving::RunOnLeaving(BoxEdit& edit, Rule rule)
{
    edit.OnLeave([this, &edit, rule = std::move(rule)](Qt::FocusReason reason) {
        Leave(edit, rule, reason);
    });
}

void FieldLeaving::CatchUp()
{
    CatchUp(Qt::OtherFocusReason);
}

void FieldLeaving::CatchUp(Qt::FocusReason reason)
{
    for (BoxEdit* edit : edits_)
        edit->CatchUp(reason);
}

void FieldLeaving::Leave(BoxEdit& edit, const Rule& rule, Qt::FocusReason reason)
{
    const QPointer<BoxEdit> left(&edit);
    NotedBoxes messages(messages_);
    edit.setProperty(kSpokenOf, true);
    handlers_.Run([&] { rule(messages); });
    if (left) left->setProperty(kSpokenOf, false);
    if (messages.shown && reason == Qt::MouseFocusReason) keptPress_.BoxShownInPress();
}

/// The toolkit has moved the focus to the control under the mouse before the press comes here.
bool FieldLeaving::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWidgetType()) return false;
    if (IsPress(*event)) {
        CatchUp(Qt::MouseFocusReason);
        return keptPress_.Takes(*watched, *event);
    }
    if (event->type() == QEvent::FocusIn) CatchUp(static_cast<QFocusEvent*>(event)->reason());
    if (event->type() == QEvent::KeyPress) CatchUp();
    return false;
}

} // namespace tarvex::panel
