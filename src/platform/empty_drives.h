#pragma once

namespace tarvex::platform
{

/// A look into a drive without a disk fails from now on as any other; where the system would ask
/// the operator for the disk instead, and hold the program up meanwhile.
void FailAtAnEmptyDrive();

} // namespace tarvex::platform
