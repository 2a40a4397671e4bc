#include "core/failure_rule.h"

namespace tarvex
{

namespace
{
FailureScope*& Innermost()
{
    static FailureScope* innermost = nullptr;
    return innermost;
}
} // namespace

FailureScope::FailureScope(bool skips, bool* failed)
    : skips_(skips), failed_(failed), outer_(Innermost())
{
    Innermost() = this;
}

FailureScope::~FailureScope()
{
    Innermost() = outer_;
}

bool FailureScope::Skips()
{
    return Innermost() != nullptr && Innermost()->skips_;
}

void FailureScope::NoteSkipped()
{
    if (Innermost() != nullptr && Innermost()->failed_ != nullptr) *Innermost()->failed_ = true;
}

} // namespace tarvex
