#include "conversation/hostile_port.h"

#include "core/failure.h"

namespace tarvex::fuzz
{

namespace
{

constexpr std::size_t kLongestFrame = 6 + 44 + 1; // a header's

bool IsFrame(std::string_view bytes)
{
    constexpr std::string_view letters = "abcCDGH";
    return bytes.size() <= kLongestFrame && bytes.size() >= 2 && bytes.back() == '\r' &&
           letters.find(bytes.front()) != std::string_view::npos;
}

/// Without the block's two digits until a block has been read.
bool IsReadFrame(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    return (bytes.size() == 7 || bytes.size() == 5) &&
           bytes.substr(1, bytes.size() - 2).find_first_not_of(digits) == std::string_view::npos;
}

} // namespace

void HostilePort::Output(std::string_view bytes)
{
    MayFail();
    Require(bytes == "}" || IsFrame(bytes), "what goes out is a wake or a frame");
    Require(bytes.front() != 'a' || IsReadFrame(bytes), "a read frame has its digits");
    port_.Output(bytes);
}

void HostilePort::MayFail()
{
    if (failures > 0 && choices_.Chance(failures)) throw RunTimeFailure("Device I/O error");
}

} // namespace tarvex::fuzz
