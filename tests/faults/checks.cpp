#include "faults/checks.h"

#include "core/block_header.h"
#include "core/report_records.h"
#include "support/report_bytes.h"

#include <algorithm>
#include <set>

namespace tarvex::tests
{

namespace
{

constexpr std::string_view kHeadReport = "dat.dat";
constexpr std::string_view kDataReport = "num.dat";
const std::string kWorkFile = "datiram.dat";

std::vector<std::string> Records(const std::string& bytes, std::size_t length)
{
    std::vector<std::string> records;
    for (std::size_t at = 0; at < bytes.size(); at += length)
        records.push_back(bytes.substr(at, length));
    return records;
}

/// The data report that a work file becomes.
std::string UpsideDown(const std::string& work)
{
    auto records = Records(work, sizeof(DataRecord));
    std::ranges::reverse(records);
    std::string report = BlankDataRecord() + BlankDataRecord();
    for (const auto& record : records)
        report += record;
    return report;
}

Complaints OfBeginning(const std::string& name, const std::string& bytes, const std::string& whole,
                       std::size_t record)
{
    Complaints complaints;
    if (bytes.size() % record != 0) complaints.push_back(name + " ends inside a record");
    if (!whole.starts_with(bytes)) complaints.push_back(name + " holds what was never written");
    return complaints;
}

std::string BytesOf(const Files& files, const std::string& name)
{
    const auto found = files.find(name);
    return found == files.end() ? std::string() : found->second;
}

Complaints OfNames(const std::filesystem::path& folder, const std::set<std::string>& allowed)
{
    Complaints complaints;
    for (const auto& name : NamesIn(folder))
        if (!allowed.contains(name))
            complaints.push_back("a stray " + name + " in " + folder.filename().string());
    return complaints;
}

} // namespace

Files FilesIn(const std::filesystem::path& folder)
{
    Files files;
    for (const auto& name : NamesIn(folder))
        if (!std::filesystem::is_symlink(folder / name)) files[name] = FileBytes(folder / name);
    return files;
}

std::vector<std::string> HeadersIn(const std::filesystem::path& table)
{
    return Records(std::filesystem::exists(table) ? FileBytes(table) : std::string(),
                   sizeof(BlockHeader));
}

Complaints OfHeaderTable(const std::filesystem::path& table, const std::vector<std::string>& before,
                         const std::vector<std::string>& after)
{
    Complaints complaints;
    const auto records = HeadersIn(table);
    if (!records.empty() && records.back().size() != sizeof(BlockHeader))
        complaints.emplace_back("the header table ends inside a record");
    if (records.size() > kBlockCount) complaints.emplace_back("more than thirty headers");
    bool changed = true;
    for (std::size_t index = 0; index < std::min(records.size(), after.size()); ++index) {
        changed = changed && records[index] == after[index];
        if (!changed && records[index] != before[index])
            complaints.push_back("header " + std::to_string(index + 1) + " is " + records[index]);
    }
    return complaints;
}

Complaints OfReports(const std::filesystem::path& reports, const Files& clean)
{
    Complaints complaints;
    const Files files = FilesIn(reports);
    const std::string work = BytesOf(files, kWorkFile);
    for (const auto& [name, bytes] : files) {
        const std::string whole =
            name.ends_with(kDataReport) ? UpsideDown(work) : BytesOf(clean, name);
        const std::size_t record =
            name.ends_with(kHeadReport) ? sizeof(ReportRecord) : sizeof(DataRecord);
        complaints = std::move(complaints) + OfBeginning(name, bytes, whole, record);
    }
    return complaints;
}

Complaints OfPlaces(const Sandbox& desk, const Files& reports)
{
    std::set<std::string> names;
    for (const auto& [name, bytes] : reports)
        names.insert(name);
    return OfNames(desk.top.Path(), {"home", "reports", "start"}) + OfNames(desk.home, {}) +
           OfNames(desk.reports, names) +
           OfNames(desk.start,
                   {"com1", "com2", "intestazione", "tar_vex.mdb", "tar_vex.mdb-journal"});
}

Complaints operator+(Complaints some, const Complaints& more)
{
    some.insert(some.end(), more.begin(), more.end());
    return some;
}

} // namespace tarvex::tests
