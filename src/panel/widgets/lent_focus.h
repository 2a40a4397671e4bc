#pragma once

#include <QPointer>
#include <QWidget>

namespace tarvex::panel
{

/// The focus of a control that is disabled for a while, as a command's own button is: the toolkit
/// passes it on to the next control, and it comes back unless the operator has moved it meanwhile.
class LentFocus
{
public:
    /// Enables or disables the control; it is always the same one.
    void Enable(QWidget& widget, bool enabled)
    {
        const bool had = widget.window()->focusWidget() == &widget;
        widget.setEnabled(enabled);
        if (!enabled && had) Lend(widget);
        if (enabled) TakeBack(widget);
    }

private:
    void Lend(const QWidget& widget)
    {
        lent_ = true;
        to_ = widget.window()->focusWidget();
    }

    void TakeBack(QWidget& widget)
    {
        if (lent_ && to_ == widget.window()->focusWidget()) widget.setFocus(Qt::OtherFocusReason);
        lent_ = false;
    }

    bool lent_ = false;
    QPointer<QWidget> to_; // none when no other control could take it
};

} // namespace tarvex::panel
