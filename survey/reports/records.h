#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tarvex::survey
{

inline constexpr std::size_t kHeadRecordBytes = 42;
inline constexpr std::size_t kDataRecordBytes = 113;

/// One record of a report, without its end.
struct Record {
    std::size_t number = 1;   ///< from 1
    std::uint64_t offset = 0; ///< of its first byte
    std::string_view text;
    bool asWritten = true; ///< of the manager's length, ended by CR and a blank
    bool ended = true;     ///< by a line end, not by the end of the file
};

/// The records of a report. Where a record of `width` bytes ends as the manager ends it, it is cut
/// there; elsewhere at its line end, be it CR, LF or both. What is left after the last line end is
/// a record too.
std::vector<Record> SplitRecords(std::string_view bytes, std::size_t width);

} // namespace tarvex::survey
