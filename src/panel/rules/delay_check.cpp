#include "panel/rules/delay_check.h"

#include "core/conversion.h"

namespace tarvex::panel
{

void LeaveDelay(TextBox& delay, MessageBoxes& messages)
{
    if (NumericValue(delay.Text()) < 3) {
        messages.Critical("Attention: Delay is too low");
        delay.SetText("3");
    }
    if (NumericValue(delay.Text()) > 9) {
        messages.Critical("Attention: Delay is too high");
        delay.SetText("9");
    }
}

} // namespace tarvex::panel
