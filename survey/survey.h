#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// The ten values of a head report, without the blanks at their ends, in UTF-8.
struct Head {
    std::string client;
    std::string site;
    std::string tube;
    std::string depth; ///< as "030.0", metres
    std::string step;  ///< "0" is 0.5 m, all else 1 m
    std::string guides;
    std::string north;
    std::string readout;
    std::string date; ///< as "16/11/26": day, month, year
    std::string time; ///< as "09:30:15"

    bool operator==(const Head&) const = default;
};

/// The values of a head under the names that the files of this program give them.
struct HeadField {
    std::string_view label; ///< as the head report writes it, without colon and blanks
    std::string_view name;  ///< one word, as JSON names it
    std::string Head::*value;
};

inline constexpr std::array<HeadField, 10> kHeadFields{{{"Client", "client", &Head::client},
                                                        {"Site", "site", &Head::site},
                                                        {"Tube no", "tube", &Head::tube},
                                                        {"Depth", "depth", &Head::depth},
                                                        {"Step", "step", &Head::step},
                                                        {"Guides no", "guides", &Head::guides},
                                                        {"North", "north", &Head::north},
                                                        {"Readout no", "readout", &Head::readout},
                                                        {"Date", "date", &Head::date},
                                                        {"Time", "time", &Head::time}}};

/// Something in a file that is not as the manager writes it.
struct Anomaly {
    std::string file;         ///< name of the file, empty while only bytes are known
    std::size_t record = 0;   ///< from 1
    std::uint64_t offset = 0; ///< of the record's first byte
    std::string text;         ///< one sentence without a full stop
    bool harmless = false;    ///< no value is lost by it
};

/// A survey as its files give it.
struct Survey {
    std::vector<std::string> files; ///< paths, head report first
    std::optional<Head> head;
    std::vector<Row> rows; ///< shallowest first, one a depth
    std::vector<Anomaly> anomalies;
    bool unfinished = false; ///< from the work file of a download
};

/// Step between two depths in tenths of a metre: from the head, else the most frequent distance of
/// the rows, 5 where they do not show one.
int StepOf(const Survey& survey);

/// Depth of the tube in tenths of a metre: from the head where it holds a number, else that of the
/// deepest row; 0 without rows.
int DepthOf(const Survey& survey);

/// Four guides, by the head where it says 2 or 4, else by the columns that have readings.
bool HasFourGuides(const Survey& survey);

/// Columns of a survey with that many guides: the first four, or all eight.
std::size_t ColumnsOf(const Survey& survey);

/// The depths that a download of this tube gives, shallowest first, in tenths of a metre. The unit
/// keeps 240 at most, from the bottom up.
std::vector<int> ExpectedDepths(int depth, int step);

/// Tenths of a metre as metres with one decimal: "12.5".
std::string Metres(int tenths);

} // namespace tarvex::survey
