#pragma once

namespace tarvex::tests
{

/// While this object lives, the process has no more rights over files than an ordinary user: tests
/// of refused folders hold for the administrator too.
class OrdinaryUser
{
public:
    OrdinaryUser();
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool changed_ = false;
};

} // namespace tarvex::tests
