#include "platform/lock_file.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <system_error>
#include <unistd.h>

namespace tarvex::platform
{

namespace
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// A program writes its number directly after it has made the file.
constexpr auto kWritingTakes = 1s;

int OwnProcess()
{
    return ::getpid();
}

bool IsAlive(int process)
{
    return ::kill(process, 0) == 0 || errno == EPERM;
}

bool IsText(char byte)
{
    return (byte >= '0' && byte <= '9') || byte == ' ' || byte == '\t' || byte == '\n';
}

int BinaryNumber(std::string_view bytes)
{
    std::int32_t number = 0;
    std::memcpy(&number, bytes.data(), sizeof number);
    return std::max(number, 0);
}

/// The two ways in which programs make a lock's name of a device's: its last part, or all of it
/// below /dev with "_" for "/".
void AddLockNames(const fs::path& device, std::set<std::string>& names)
{
    std::string whole = device.native();
    if (whole.starts_with("/dev/")) whole.erase(0, 5);
    std::replace(whole.begin(), whole.end(), '/', '_');
    names.insert("LCK.." + whole);
    names.insert("LCK.." + device.filename().native());
}

std::set<std::string> LockNamesOf(const fs::path& device, const LockFolders& folders)
{
    std::set<std::string> names;
    AddLockNames(device, names);
    for (const fs::path& folder : folders.names) {
        std::error_code absent;
        for (const auto& name : fs::directory_iterator(folder, absent)) {
            std::error_code leadsNowhere;
            if (fs::canonical(name.path(), leadsNowhere) == device) AddLockNames(name, names);
        }
    }
    return names;
}

int ProcessIn(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(stream), {}};
    return ProcessNamedBy(content);
}

/// Empty for longer than a program takes to write its number: it was killed before it could. A time
/// to come is an earlier one too, of a clock that was put back.
bool WasNeverWritten(const fs::path& file)
{
    std::error_code gone;
    if (fs::file_size(file, gone) != 0 || gone) return false;
    const auto age = fs::file_time_type::clock::now() - fs::last_write_time(file, gone);
    return !gone && (age > kWritingTakes || age < -kWritingTakes);
}

/// Whether the process of a lock file may still be there. This one is not meant: what it holds
/// shows as an advisory lock, and a file of its number was left by an earlier process.
bool IsHeld(const fs::path& file, int process)
{
    if (process == 0) return !WasNeverWritten(file);
    return process != OwnProcess() && IsAlive(process);
}

} // namespace

int ProcessNamedBy(std::string_view content)
{
    if (content.size() == sizeof(std::int32_t) && !std::ranges::all_of(content, IsText)) {
        return BinaryNumber(content);
    }
    content.remove_prefix(std::min(content.find_first_not_of(" \t"), content.size()));
    int number = 0;
    std::from_chars(content.data(), content.data() + content.size(), number);
    return std::max(number, 0);
}

std::vector<fs::path> LockFilesOf(const fs::path& device, const LockFolders& folders)
{
    std::vector<fs::path> files;
    for (const std::string& name : LockNamesOf(device, folders)) {
        std::error_code absent;
        if (fs::exists(folders.locks / name, absent)) files.push_back(folders.locks / name);
    }
    return files;
}

std::optional<LockFileHold> HoldByLockFile(const fs::path& device, const LockFolders& folders)
{
    for (const fs::path& file : LockFilesOf(device, folders)) {
        const int process = ProcessIn(file);
        if (IsHeld(file, process)) return LockFileHold{file, process};
    }
    return std::nullopt;
}

bool RemoveLockFiles(const fs::path& device, const LockFolders& folders)
{
    bool allGone = true;
    for (const fs::path& file : LockFilesOf(device, folders)) {
        std::error_code refused;
        if (!IsHeld(file, ProcessIn(file))) fs::remove(file, refused);
        allGone = allGone && !fs::exists(file, refused);
    }
    return allGone;
}

} // namespace tarvex::platform
