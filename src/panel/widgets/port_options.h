#pragma once

#include "core/control_panel.h"
#include "core/port_names.h"

#include <QButtonGroup>
#include <QObject>

namespace tarvex::panel
{

/// The four option buttons of the serial port: they show what the group has selected, and say in
/// their tool tips, asked for again each time, which device each number means at that moment.
class PortOptions final : public QObject
{
public:
    /// Makes the buttons of `window` those of `group`. All three must outlive it.
    PortOptions(QWidget& window, OptionGroup& group, PortNames& names);
    ~PortOptions() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowSelected();

    OptionGroup& group_;
    PortNames& names_;
    QButtonGroup buttons_;
};

} // namespace tarvex::panel
