#pragma once

#include "core/control_panel.h"
#include "core/port_names.h"

#include <QButtonGroup>
#include <QObject>

namespace tarvex::panel
{

/// The four option buttons of the serial port: they show what the group has selected, and say in
/// their tool tips and to assistive tools, asked for again each time a tip shows or the focus
/// comes, which device each number means at that moment and how its last opening went.
class PortOptions final : public QObject
{
public:
    /// Makes the buttons of `window` those of `group`. All three must outlive it.
    PortOptions(QWidget& window, OptionGroup& group, PortNames& names);
    ~PortOptions() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowSelected();
    void Describe(QAbstractButton& button);

    OptionGroup& group_;
    PortNames& names_;
    QButtonGroup buttons_;
};

} // namespace tarvex::panel
