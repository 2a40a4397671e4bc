#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvex::survey
{

/// The columns of a report, in its order: channel and guide.
enum class Column : std::uint8_t { A1, B1, A3, B3, A2, B2, A4, B4 };

inline constexpr std::size_t kColumns = 8;
inline constexpr std::array<std::string_view, kColumns> kColumnNames{"A1", "B1", "A3", "B3",
                                                                     "A2", "B2", "A4", "B4"};

/// The largest magnitude that a word of the unit's memory carries, in counts.
inline constexpr int kLargestReading = 32767;

/// One reading in raw counts, -32767 to 32767.
struct Reading {
    int counts = 0;
    /// The report says "-00000". A word of empty memory reads so.
    bool minusZero = false;

    bool operator==(const Reading&) const = default;
};

/// The readings of one depth.
struct Row {
    int depth = 0; ///< in tenths of a metre
    std::array<std::optional<Reading>, kColumns> readings;
    std::size_t record = 0; ///< number of the row's record in its file, from 1

    /// The reading of a column; nothing where the report has none.
    const std::optional<Reading>& At(Column column) const
    {
        return readings[static_cast<std::size_t>(column)];
    }
    /// Counts of a column, where there is a reading.
    std::optional<int> Counts(Column column) const
    {
        const auto& reading = At(column);
        return reading ? std::optional(reading->counts) : std::nullopt;
    }
};

} // namespace tarvex::survey
