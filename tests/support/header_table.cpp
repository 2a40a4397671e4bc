#include "support/header_table.h"

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <utility>

namespace tarvex::tests
{

namespace
{

constexpr std::size_t kRecordLength = 77;
constexpr std::size_t kCalibrationOffset = 48;

std::string TwoDecimals(int number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string Joined(const std::vector<std::string>& texts, std::size_t first, std::size_t last)
{
    return std::accumulate(texts.begin() + static_cast<std::ptrdiff_t>(first),
                           texts.begin() + static_cast<std::ptrdiff_t>(last), std::string());
}

} // namespace

std::string OwnRecord(int number)
{
    const std::string nn = TwoDecimals(number);
    const std::string step = number % 2 == 0 ? "0" : "1";
    const std::string guides = number % 3 == 0 ? "4" : "2";
    const std::string point(1, static_cast<char>('A' + number - 1));
    return "ROSSI_" + nn + "DIGA  " + nn + "T" + nn + " " + "0" + nn + "5" + step + guides + "+0" +
           nn + nn + nn + "0126  " + "10" + nn + "30  " + point + "+1.00" + nn + "+2.00" + nn +
           "+0.10" + nn + "+0.20" + nn;
}

std::vector<std::string> OwnTable()
{
    std::vector<std::string> records;
    for (int number = 1; number <= kBlockCount; ++number)
        records.push_back(OwnRecord(number));
    return records;
}

std::string DefaultRecord(int number)
{
    return "CLIENT" + std::string(number < 10 ? " " : "") + std::to_string(number) +
           "SITE0000T   000002+00000DDMMYY  hhmmss  0+1.0000+1.0000+0.0000+0.0000";
}

std::string WithCalibrationOf(std::string_view calibrated, std::string_view record)
{
    return std::string(record.substr(0, kCalibrationOffset)) +
           std::string(calibrated.substr(kCalibrationOffset));
}

std::string WithClient(std::string_view client, std::string_view record)
{
    std::string changed(record);
    std::fill_n(changed.begin(), 8, ' ');
    return changed.replace(0, client.size(), client);
}

std::string HeaderPayload(std::string_view record)
{
    return std::string(record.substr(0, 38)) + std::string(record.substr(40, 6));
}

std::string CalibrationPayload(std::string_view record)
{
    std::string payload;
    for (const std::size_t offset : {49U, 63U, 56U, 70U})
        payload += record.substr(offset, 7);
    payload += record[kCalibrationOffset];
    return payload;
}

std::string BlockAddress(int blockIndex)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto index = static_cast<std::size_t>(blockIndex);
    return {digits[index / 16], digits[index % 16], '0', '0', '0'};
}

std::string HeaderFrame(int blockIndex, std::string_view record)
{
    return "C" + BlockAddress(blockIndex) + HeaderPayload(record) + "\r";
}

void WriteTable(const TestProgram& program, const std::vector<std::string>& records)
{
    // A file cut to nothing is flushed to the disk when it closes, which is slow; a new one is not.
    std::filesystem::remove(program.state.headerFilePath);
    WriteFile(program.state.headerFilePath, Joined(records, 0, records.size()));
}

void OpenOwnTableAt(TestProgram& program, int number)
{
    WriteTable(program, OwnTable());
    program.state.currentBlock = number;
    program.panel.blockNumber.SetText(TwoDecimals(number));
    ReloadPanel(program.panel, program.state);
}

std::vector<std::string> StoredTable(const TestProgram& program)
{
    const std::string bytes = FileBytes(program.state.headerFilePath);
    std::vector<std::string> records;
    for (std::size_t offset = 0; offset < bytes.size(); offset += kRecordLength)
        records.push_back(bytes.substr(offset, kRecordLength));
    return records;
}

std::string HeaderOnPanel(const TestProgram& program)
{
    return Joined(program.HeaderBoxTexts(), 0, 11);
}

std::string CalibrationOnPanel(const TestProgram& program)
{
    return Joined(program.HeaderBoxTexts(), 11, 16);
}

void LogTexts(TestProgram& program, std::string name, TextBox& box)
{
    box.Watch([&program, name = std::move(name), &box] {
        program.port.history.push_back(name + "=" + box.Text());
    });
}

} // namespace tarvex::tests
