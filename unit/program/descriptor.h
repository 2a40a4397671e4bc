#pragma once

#include <unistd.h>
#include <utility>

namespace tarvex::unit
{

/// A file descriptor that is closed with its owner; -1 is none.
class Descriptor
{
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(number_, other.number_);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }

    int Number() const { return number_; }

    /// Closes the descriptor if it is open; no effect the second time.
    void Close()
    {
        if (number_ >= 0) ::close(number_);
        number_ = -1;
    }

private:
    int number_;
};

} // namespace tarvex::unit
