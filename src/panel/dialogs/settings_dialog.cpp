#include "panel/dialogs/settings_dialog.h"

#include "core/header_store.h"
#include "panel/widgets/box_edit.h"
#include "panel/widgets/look.h"
#include "panel/window/controls.h"
#include "panel/window/layouts.h"

#include <QAbstractButton>

#include <utility>

namespace tarvex::panel
{

SettingsDialog::SettingsDialog(const DialogContext& context, const char* name, const char* title,
                               QWidget* parent)
    : QWidget(parent, Qt::Dialog),
      context_(context),
      leaving_(context.handlers, context.line.messages)
{
    context_.line.indicator = nullptr;
    setObjectName(name);
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    ApplyLook(*this);
    context_.handlers.Run([this] {
        StorePanel(context_.panel, context_.line.state, context_.line.state.currentBlock);
    });
}

SettingsDialog::~SettingsDialog()
{
    for (BoxEdit* edit : findChildren<BoxEdit*>())
        edit->Detach();
    // The controls let go of their boxes, which must still be there.
    qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

void SettingsDialog::MakeFrame(std::string_view frame,
                               const std::function<void(ControlRow&)>& adapt)
{
    for (ControlRow row : ControlTable()) {
        if (row.name != frame && row.parent != frame) continue;
        adapt(row);
        QWidget* control = MakeControl(row, *boxes_, *this);
        if (auto* edit = dynamic_cast<BoxEdit*>(control)) leaving_.Watch(*edit);
    }
}

void SettingsDialog::OnClick(const char* button, std::function<void()> command)
{
    connect(findChild<QAbstractButton*>(button), &QAbstractButton::clicked, this,
            [this, command = std::move(command)] {
                leaving_.CatchUp();
                context_.handlers.Run(command);
            });
}

void SettingsDialog::OnClickOnLine(const char* button,
                                   std::function<void(DeviceLink&, OperatorView&)> command)
{
    OnClick(button, [this, command = std::move(command)] {
        DeviceLink link(context_.line);
        OperatorView view(context_.line);
        command(link, view);
    });
}

} // namespace tarvex::panel
