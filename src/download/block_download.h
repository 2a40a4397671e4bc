#pragma once

#include "link/device_link.h"

namespace tarvex
{

/// Reads the header and the readings of the block in `numblocco` and leaves in `ReportFolder` the
/// head report, the work file and the data report. The readings are copied raw, each row into the
/// work file as soon as it has come. Ends with `Timer1` stopped.
void BlockDownload(Panel& panel, WorkingState& state, DeviceLink& link);

} // namespace tarvex
