#pragma once

#include "link/device_link.h"
#include "link/operator_view.h"

namespace tarvex
{

/// The end of an operation: port closed, then indicator hidden.
void EndOperation(DeviceLink& link, OperatorView& view);

/// What a wake that ran out leads to: the box, then the end of the operation.
void EndUnanswered(DeviceLink& link, OperatorView& view);

} // namespace tarvex
