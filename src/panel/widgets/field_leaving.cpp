#include "panel/widgets/field_leaving.h"

#include "panel/widgets/box_edit.h"
#include "panel/widgets/noted_boxes.h"

#include <QCoreApplication>
#include <QFocusEvent>

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
    edit.OnLeave([this, rule = std::move(rule)](Qt::FocusReason reason) { Leave(rule, reason); });
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

void FieldLeaving::Leave(const Rule& rule, Qt::FocusReason reason)
{
    NotedBoxes messages(messages_);
    handlers_.Run([&] { rule(messages); });
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
