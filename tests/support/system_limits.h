#pragma once

#include <cstddef>
#include <functional>

namespace tarvex::tests
{

/// While it lives, no file of this process grows beyond that many bytes: a disk that becomes full
/// in the middle of a write.
class FullDisk
{
public:
    explicit FullDisk(std::size_t bytes);
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    unsigned long long before_ = 0;
    void (*signalBefore_)(int) = nullptr;
};

/// True when `check`, run by a user without privileges in a process of its own, gives true.
bool HoldsForAnyUser(const std::function<bool()>& check);

} // namespace tarvex::tests
