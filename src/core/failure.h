#pragma once

#include <stdexcept>

namespace tarvex
{

/// The one run-time failure: raised by platform operations, record files and conversions.
/// What it ends is decided by the FailureScope in force (see failure_rule.h).
class RunTimeFailure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The main form was closed, or the program ends after a failure: raised by the event pump in every
/// pass from then on, so that no further step of any handler runs. It is no RunTimeFailure and
/// passes every rule.
class ProgramEnded
{
};

} // namespace tarvex
