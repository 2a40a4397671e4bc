#pragma once

#include "core/working_state.h"

namespace tarvex
{

/// The option button with that index (from 0) names the port that the next opening uses. A port
/// already open stays the one it is; none is opened or tested here.
void ChoosePort(WorkingState& state, int optionIndex);

} // namespace tarvex
