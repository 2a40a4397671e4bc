#include "settings/port_choice.h"

namespace tarvex
{

void ChoosePort(WorkingState& state, int optionIndex)
{
    state.ComPortNumber = optionIndex + 1;
}

} // namespace tarvex
