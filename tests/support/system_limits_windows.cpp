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
    return check(); // no second user is to be had here: as whoever runs the test
}

} // namespace tarvex::tests
