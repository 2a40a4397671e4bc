#pragma once

namespace tarvex::platform
{

/// A write beyond the size that a file may have fails from now on, as on a full disk; the system
/// would end the program instead. Programs that this one starts are not concerned.
void FailWritesAtTheSizeLimit();

} // namespace tarvex::platform
