#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tarvex::fuzz
{

/// An input as a row of choices. What has been used up goes on as zeros, and zero always chooses
/// what is ordinary: a short input is a run in which little goes wrong.
class Choices
{
public:
    /// `input` must outlive it.
    explicit Choices(std::string_view input) : rest_(input) {}

    /// True when only zeros are left.
    bool UsedUp() const { return rest_.empty(); }

    /// A number below `bound`, which is at most 65536.
    unsigned Below(unsigned bound);

    /// True so often, in percent.
    bool Chance(unsigned percent) { return Below(100) >= 100 - percent; }

    /// One of several things.
    template <class Thing, std::size_t Count>
    const Thing& OneOf(const Thing (&things)[Count])
    {
        return things[Below(Count)];
    }

    /// Any bytes, at most so many.
    std::string Bytes(std::size_t most);

    /// All that is left.
    std::string_view Rest() const { return rest_; }

    /// A text that somebody might put where it does harm, or any bytes, at most so many: file names
    /// that lead elsewhere, names that a system keeps for itself, NUL bytes, numbers at a limit.
    std::string HostileText(std::size_t most);

private:
    std::string_view rest_;
};

} // namespace tarvex::fuzz
