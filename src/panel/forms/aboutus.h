#pragma once

#include "core/handlers.h"

#include <QDialog>

namespace tarvex::panel
{

/// The about box `aboutus`: the program, its version, and who makes it. Deletes itself when closed.
class AboutUs : public QDialog
{
public:
    /// Runs its button's handler through `handlers`, which must outlive the box.
    AboutUs(Handlers& handlers, QWidget* parent);

private:
    void Build(Handlers& handlers);
    QLayout* Rows();
};

} // namespace tarvex::panel
