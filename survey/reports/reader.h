#pragma once

#include "survey/model/survey.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvex::survey
{

enum class FileKind {
    None,       ///< no report
    HeadReport, ///< "…-dat.dat"
    DataReport, ///< "…-num.dat": shallowest first, title last
    WorkFile    ///< "datiram.dat": title first, deepest first
};

/// What the bytes of one file say.
struct Contents {
    FileKind kind = FileKind::None;
    Head head;                      ///< of a head report
    std::vector<Row> rows;          ///< of the others, shallowest first, one a depth
    std::vector<Anomaly> anomalies; ///< at most kMostAnomalies, in order of their records
    std::string refusal;            ///< why it is no report: one sentence without its file
};

inline constexpr std::size_t kMostAnomalies = 100;

/// Reads a report of any kind from its bytes, also one that came through other hands: other line
/// ends, NUL bytes turned to blanks, blanks stripped, a UTF-8 byte order mark. Takes any bytes,
/// touches nothing, and fails by a refusal only.
Contents Read(std::string_view bytes);

} // namespace tarvex::survey
