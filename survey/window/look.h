#pragma once

namespace tarvex::survey
{

/// Gives the application its style and texts of a size that is read out of doors, 11 points at
/// least, as the manager's. To be called before the first window is made.
void Dress();

} // namespace tarvex::survey
