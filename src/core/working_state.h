#pragma once

#include "core/block_header.h"
#include "core/report_records.h"

#include <filesystem>
#include <string>

namespace tarvex
{

/// The program-wide variables that all commands share, for the length of one run; never saved.
struct WorkingState {
    /// Working copy of one header record: every file operation passes through it.
    BlockHeader blockHeader = DefaultHeader(0);

    /// The header file in use.
    std::filesystem::path headerFilePath;

    /// Serial port to use, 1 to 4.
    int comPortNumber = 1;

    /// Ticks of 100 ms, 0 to 5000.
    int tickCounter = 0;

    /// The pieces of a read address: block index (two hexadecimal digits), bank (one), page (two).
    std::string readAddrBlock;
    std::string readAddrBank;
    std::string readAddrPage;

    /// The record that the panel belongs to. A plain number: commands count loops in it, so that it
    /// may be 0, 30, 99 or a fraction in between.
    double currentBlock = 1;

    /// The block last stepped to for download, 1 to 30.
    int downloadBlock = 1;

    /// Where the reports go; empty until the operator has chosen a folder.
    std::filesystem::path reportFolder;

    /// The report file in work, as the panel shows it.
    std::string reportFileName;

    /// The records of the report files keep their content from one download to the next.
    ReportRecord reportRecord;
    DataRecord dataRecord;
    DataRecord dataRecordIn;

    /// The four-character depth as last joined from its two boxes.
    std::string depthText;
};

} // namespace tarvex
