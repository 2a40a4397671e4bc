#pragma once

#include "core/shell.h"

namespace tarvex::platform
{

/// The desktop's own way to open a web address or a file. Returns at once; the program that opens
/// it, if there is one, runs by itself.
class QtShell : public Shell
{
public:
    /// Knows the operation "open" alone; the parameters, directory and show command of a request
    /// play no part in opening a document.
    void Execute(const ShellRequest& request) override;
};

} // namespace tarvex::platform
