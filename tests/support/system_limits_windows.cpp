#include "support/system_limits.h"

#include <stdexcept>

namespace tarvex::tests
{

bool FullDisk::Possible()
{
    return false;
}

FullDisk::FullDisk(std::size_t /*bytes*/)
{
    throw std::logic_error("this system limits the size of no file of a process");
}

FullDisk::~FullDisk() = default;

bool HoldsForAnyUser(const std::function<bool()>& check)
{
    return check(); // nobody here writes what is marked as read-only, not even an administrator
}

} // namespace tarvex::tests
