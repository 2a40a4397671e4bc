#pragma once

#include "unit/unit.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvex::unit
{

/// The bytes of replies, one after another.
inline std::string BytesOf(const std::vector<Reply>& replies)
{
    std::string bytes;
    for (const auto& reply : replies)
        bytes += reply.bytes;
    return bytes;
}

/// Wakes the unit, which must answer "!", and hands it a frame; returns what it says to that.
inline std::string Exchange(Unit& unit, std::string_view frame, Time now = Time{0})
{
    if (BytesOf(unit.Feed("}", now)) != "!") return "(not woken)";
    return BytesOf(unit.Feed(frame, now));
}

} // namespace tarvex::unit
