#include "core/control_panel.h"

namespace tarvex
{

void WaitIndicator::Show()
{
    label.Show();
    ground.Show();
}

void WaitIndicator::Hide()
{
    label.Hide();
    ground.Hide();
}

} // namespace tarvex
