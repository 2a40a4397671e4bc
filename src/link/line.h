#pragma once

#include "core/control_panel.h"
#include "core/event_pump.h"
#include "core/message_boxes.h"
#include "core/serial_port.h"
#include "core/working_state.h"

namespace tarvex
{

/// What the operations on the line are made from: DeviceLink speaks with the unit, OperatorView
/// with the operator.
struct Line {
    SerialPort& port;
    EventPump& pump;
    TickTimer& timer;
    MessageBoxes& messages;
    WorkingState& state;
    WaitIndicator* indicator; ///< null for a dialog, which has none
};

} // namespace tarvex
