#pragma once

#include "link/device_link.h"
#include "link/operator_view.h"

namespace tarvex
{

/// Fetches the header of the block whose number is shown from the unit and shows it in the header
/// boxes. A look only: neither the working header nor the header file nor `currentBlock` changes.
void ReadBlock(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view);

} // namespace tarvex
