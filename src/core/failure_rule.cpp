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

FailureScope::FailureScope() : outer_(Innermost())
{
    Innermost() = this;
}

FailureScope::~FailureScope()
{
    Innermost() = outer_;
}

bool FailureScope::Skips()
{
    return Innermost() != nullptr && Innermost()->SkipsSteps();
}

void FailureScope::NoteSkipped()
{
    if (Innermost() != nullptr) Innermost()->StepSkipped();
}

} // namespace tarvex
