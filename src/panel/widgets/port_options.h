#pragma once

#include "core/control_panel.h"
#include "core/port_names.h"

#include <QButtonGroup>
#include <QObject>

namespace tarvex::panel
{

/// The four option buttons of the serial port: they show what the group has selected, and say in
/// their tool tips and to assistive tools which device each number means at that moment and how its
/// last opening went. That is asked for again each time a tip shows or the focus comes; and, where
/// an assistive tool listens, when they come on view, their window becomes the active one or a wait
/// for the unit has ended.
class PortOptions final : public QObject
{
public:
    /// Makes the buttons of `window` those of `group`. All three must outlive it.
    PortOptions(QWidget& window, OptionGroup& group, PortNames& names);
    ~PortOptions() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowSelected();
    void DescribeAll();
    void Describe(QAbstractButton& button);

    OptionGroup& group_;
    PortNames& names_;
    QButtonGroup buttons_;
};

} // namespace tarvex::panel
