#pragma once

#include "core/fixed_text.h"

#include <cstddef>
#include <string_view>
#include <type_traits>

namespace tarvex
{

/// What a report's record ends in: CR and a blank, never a line feed.
inline constexpr std::string_view kRecordEnd = "\r ";

/// One line of the head report. NUL bytes until assigned.
struct ReportRecord {
    FixedText<40> text; ///< the line; offset 0
    FixedText<2> end;   ///< kRecordEnd; offset 40
};

static_assert(std::is_trivially_copyable_v<ReportRecord>);
static_assert(sizeof(ReportRecord) == 42);

/// One line of the work file and of the data report. Every field holds NUL bytes until assigned,
/// and a write that does not set a field leaves in it what the record held: both show in the files.
struct DataRecord {
    FixedText<40> text; ///< the title, or blanks; offset 0
    FixedText<7> depth; ///< metres as "000.0", ";" and a blank; offset 40
    FixedText<8> a1;    ///< a reading with its sign, ";" and a blank; offset 47
    FixedText<8> b1;    ///< as a1; offset 55
    FixedText<8> a3;    ///< as a1; offset 63
    FixedText<8> b3;    ///< as a1; offset 71
    FixedText<8> a2;    ///< as a1, four guides only; offset 79
    FixedText<8> b2;    ///< as a2; offset 87
    FixedText<8> a4;    ///< as a2; offset 95
    FixedText<8> b4;    ///< as a2; offset 103
    FixedText<2> end;   ///< kRecordEnd; offset 111
};

static_assert(std::is_trivially_copyable_v<DataRecord>);
static_assert(sizeof(DataRecord) == 113);
static_assert(offsetof(DataRecord, a1) == 47);
static_assert(offsetof(DataRecord, a2) == 79);
static_assert(offsetof(DataRecord, end) == 111);

} // namespace tarvex
