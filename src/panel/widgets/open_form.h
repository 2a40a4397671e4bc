#pragma once

#include "panel/widgets/fit_screen.h"

#include <QPointer>
#include <QWidget>

namespace tarvex::panel
{

/// Raises the form if it is on view; else shows the one that `load` makes, once `look` has dressed
/// it, within the free part of the screen. A form that was closed in this pass of events may still
/// be there: it is not on view, and is left to its end.
template <class Form, class Loader, class Look>
void OpenForm(QPointer<Form>& form, const Loader& load, const Look& look)
{
    if (form.isNull() || !form->isVisible()) {
        form = load();
        look(*form);
        FitToScreen(*form);
    }
    form->setWindowState(form->windowState() & ~Qt::WindowMinimized);
    form->show();
    form->raise();
    form->activateWindow();
}

} // namespace tarvex::panel
