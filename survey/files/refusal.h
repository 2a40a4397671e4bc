#pragma once

#include <stdexcept>

namespace tarvex::survey
{

/// A file that is no report; what() is one sentence that names it.
class Refusal : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace tarvex::survey
