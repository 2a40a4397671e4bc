#pragma once

#include <string>

namespace tarvex
{

/// What a person knows a port number by.
class PortNames
{
public:
    virtual ~PortNames() = default;

    /// The device that "Com `number`" (1 to 4) means at this moment, with its product text; or that
    /// there is none, and what to do about it; in a line of its own, how its last opening went.
    /// UTF-8, for a tool tip.
    virtual std::string Describe(int number) = 0;
};

} // namespace tarvex
