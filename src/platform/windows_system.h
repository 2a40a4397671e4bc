#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <utility>

namespace tarvex::platform
{

/// A handle of the system's, closed with its owner. The system has two values for none; both are
/// none here.
class SystemHandle
{
public:
    SystemHandle() = default;

    /// Takes over what a call of the system gave.
    explicit SystemHandle(HANDLE handle)
        : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle)
    {
    }
    ~SystemHandle() { Close(); }
    SystemHandle(SystemHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    SystemHandle& operator=(SystemHandle&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }

    /// False for none.
    explicit operator bool() const { return handle_ != nullptr; }
    HANDLE Get() const { return handle_; }

    /// Closes it; no effect when there is none.
    void Close()
    {
        if (handle_ != nullptr) ::CloseHandle(std::exchange(handle_, nullptr));
    }

private:
    HANDLE handle_ = nullptr;
};

} // namespace tarvex::platform
