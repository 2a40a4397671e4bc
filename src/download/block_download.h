#pragma once

#include "link/device_link.h"
#include "link/operator_view.h"

namespace tarvex
{

/// Reads the header and the readings of the block to download and leaves in `reportFolder` the
/// head report, the work file and the data report. The readings are copied raw, each row into the
/// work file as soon as it has come. Ends with `Timer1` stopped.
void BlockDownload(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
                   EventPump& pump);

} // namespace tarvex
