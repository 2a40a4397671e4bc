#include "panel/dialogs/port_dialog.h"

#include "panel/window/controls.h"
#include "panel/window/layouts.h"
#include "settings/port_choice.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <string>

namespace tarvex::panel
{

PortDialog::PortDialog(const DialogContext& context, QWidget* parent)
    : SettingsDialog(context, "Form1", "Serial port RS232", parent)
{
    MakeFrame("Frameserial", [](ControlRow& row) {
        if (row.kind == ControlKind::Frame) row.caption = "Serial port";
    });
    auto* close = new QPushButton("&Close", this);
    close->setObjectName("command3d1close");
    LayOutPorts(*this);
    auto* column = new QVBoxLayout(this);
    column->addWidget(&ControlNamed(*this, "Frameserial"));
    column->addWidget(close, 0, Qt::AlignRight);

    boxes_->portOptions.OnClick([this](int index) { ChoosePort(context_.line.state, index); });
    options_ = std::make_unique<PortOptions>(*this, boxes_->portOptions, context_.portNames);
    for (int index = 0; index < 4; ++index) {
        OnClick(("ssOption1_" + std::to_string(index)).c_str(),
                [this, index] { boxes_->portOptions.Select(index); });
    }
    connect(close, &QPushButton::clicked, this, &QWidget::close);
}

} // namespace tarvex::panel
