#include "settings/port_choice.h"

namespace tarvex
{

void ChoosePort(WorkingState& state, int optionIndex)
{
    state.comPortNumber = optionIndex + 1;
}

} // namespace tarvex
