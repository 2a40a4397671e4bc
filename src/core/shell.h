#pragma once

#include <string>

namespace tarvex
{

/// A request to the desktop's shell, in its own order of arguments.
struct ShellRequest {
    std::string operation;  ///< "open"
    std::string file;       ///< what to open: a path or a web address
    std::string parameters; ///< none for a document
    std::string directory;  ///< the working directory of what is started
    int showCommand = 0;    ///< 0: no window of the shell's own
};

/// The desktop's shell.
class Shell
{
public:
    virtual ~Shell() = default;

    /// Hands the request over. A failure is not reported: nothing visible happens.
    virtual void Execute(const ShellRequest& request) = 0;
};

} // namespace tarvex
