#pragma once

namespace tarvex::panel
{

/// Tells assistive tools what the toolkit does not know of this program's controls: that a window
/// is one, what a frame groups, how far an exchange has come, and what a window announces. A second
/// call does nothing.
void DescribeToAssistiveTools();

} // namespace tarvex::panel
