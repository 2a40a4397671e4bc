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
    tarvex::BlockHeader BlockHeader = DefaultHeader(0);

    /// The header file in use.
    std::filesystem::path HeaderFilePath;

    /// Serial port to use, 1 to 4.
    int ComPortNumber = 1;

    /// Ticks of 100 ms, 0 to 5000.
    int TickCounter = 0;

    /// The pieces of a read address: block index (two hexadecimal digits), bank (one), page (two).
    std::string ReadAddrBlock;
    std::string ReadAddrBank;
    std::string ReadAddrPage;

    /// The record that the panel belongs to. A plain number: commands count loops in it, so that it
    /// may be 0, 30, 99 or a fraction in between.
    double CurrentBlock = 1;

    /// The block last stepped to for download, 1 to 30.
    int DownloadBlock = 1;

    /// Where the reports go; empty until the operator has chosen a folder.
    std::filesystem::path ReportFolder;

    /// The report file in work, as the panel shows it.
    std::string ReportFileName;

    /// The records of the report files keep their content from one download to the next.
    tarvex::ReportRecord ReportRecord;
    tarvex::DataRecord DataRecord;
    tarvex::DataRecord DataRecordIn;

    /// The four-character depth as last joined from `Text6` and `Text13`.
    std::string DepthText;
};

} // namespace tarvex
