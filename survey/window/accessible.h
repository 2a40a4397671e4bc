#pragma once

namespace tarvex::survey
{

/// Gives assistive tools the role of the verdict, which the toolkit takes for any label.
void DescribeToAssistiveTools();

} // namespace tarvex::survey
