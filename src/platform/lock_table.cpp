#include "platform/lock_table.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <string>

namespace tarvex::platform
{

namespace
{

/// "08:01:4711": the numbers of the file system in hexadecimal digits.
std::string NodeText(const FileNumber& file)
{
    std::ostringstream text;
    text << std::hex << std::setfill('0') << std::setw(2) << file.deviceMajor << ':' << std::setw(2)
         << file.deviceMinor << ':' << std::dec << file.inode;
    return text.str();
}

bool IsAdvisory(std::string_view kind)
{
    return kind == "FLOCK" || kind == "POSIX" || kind == "OFDLCK";
}

} // namespace

std::optional<int> HolderInLockTable(std::string_view table, const FileNumber& file)
{
    const std::string wanted = NodeText(file);
    std::istringstream lines{std::string(table)};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string number, kind, strictness, access, node;
        int process = 0;
        words >> number >> kind >> strictness >> access >> process >> node;
        if (words && IsAdvisory(kind) && node == wanted) return std::max(process, 0);
    }
    return std::nullopt;
}

} // namespace tarvex::platform
