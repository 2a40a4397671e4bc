#include "survey/listing.h"

#include "survey/load.h"
#include "survey/reader.h"
#include "survey/report_file.h"
#include "survey/text.h"

#include <algorithm>
#include <map>
#include <system_error>
#include <tuple>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

constexpr int kDeepest = 16;        // folders within each other
constexpr std::size_t kSteps = 256; // files between two calls of progress
constexpr std::string_view kHeadEnding = "-dat.dat";
constexpr std::string_view kDataEnding = "-num.dat";

/// The two files of a survey.
struct Files {
    fs::path head;
    fs::path data;
};

/// Files by folder and name without the ending, in small letters.
using Found = std::map<std::string, Files>;

void Take(Found& found, const fs::path& path)
{
    const auto name = Lower(path.filename().string());
    for (const auto& [ending, file] :
         {std::pair{kHeadEnding, &Files::head}, std::pair{kDataEnding, &Files::data}})
        if (name.ends_with(ending)) {
            const auto stem = name.substr(0, name.size() - ending.size());
            found[(path.parent_path() / stem).string()].*file = path;
        }
}

Found FilesBelow(const fs::path& folder, const std::function<void(std::size_t)>& progress)
{
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied,
                                           error);
    if (error) throw Refusal(Shown(folder) + " cannot be listed: " + error.message());
    Found found;
    std::size_t seen = 0;
    for (const fs::recursive_directory_iterator end; entry != end; entry.increment(error)) {
        if (error) break;
        if (entry.depth() >= kDeepest) entry.disable_recursion_pending();
        Take(found, entry->path());
        if (progress && ++seen % kSteps == 0) progress(seen);
    }
    return found;
}

/// What the name of a report says: it holds the fields with all their blanks.
Head HeadFromName(const fs::path& path)
{
    constexpr std::size_t kWidth = 8 + 1 + 8 + 1 + 4 + 1 + 2;
    Head head;
    const auto name = path.filename().string();
    if (name.size() != kWidth + kDataEnding.size()) return head;
    const auto part = [&](std::size_t at, std::size_t width) {
        return Readable(Trimmed(std::string_view(name).substr(at, width)), Encoding::Utf8);
    };
    head.client = part(0, 8);
    head.site = part(9, 8);
    head.tube = part(18, 4);
    head.readout = part(23, 2);
    return head;
}

ListedSurvey ListedFrom(const Files& files)
{
    ListedSurvey listed{
        files.head.empty() ? files.data : files.head, {}, false, !files.data.empty()};
    if (!files.head.empty()) {
        const auto file = ReadBytes(files.head);
        const auto contents = Read(file.bytes);
        listed.hasHead = contents.kind == FileKind::HeadReport;
        listed.head = contents.head;
    }
    if (!listed.hasHead) listed.head = HeadFromName(listed.path);
    return listed;
}

/// "16/11/26" as "26/11/16", which sorts.
std::string SortableDate(const std::string& date)
{
    constexpr std::size_t kWidth = 8;
    if (date.size() != kWidth) return date;
    return date.substr(6, 2) + date.substr(2, 4) + date.substr(0, 2);
}

auto OrderOf(const ListedSurvey& listed)
{
    const auto& head = listed.head;
    return std::tuple(head.client, head.site, head.tube, WholeNumber(head.readout).value_or(-1),
                      head.readout, SortableDate(head.date), head.time, listed.path);
}
/// The keys are made once: comparing makes many more of them than there are surveys.
std::vector<ListedSurvey> Sorted(std::vector<ListedSurvey> surveys)
{
    using Key = decltype(OrderOf(ListedSurvey()));
    std::vector<std::pair<Key, std::size_t>> order;
    order.reserve(surveys.size());
    for (const auto& listed : surveys)
        order.emplace_back(OrderOf(listed), order.size());
    std::ranges::sort(order);
    std::vector<ListedSurvey> sorted;
    sorted.reserve(surveys.size());
    for (const auto& [key, place] : order)
        sorted.push_back(std::move(surveys[place]));
    return sorted;
}
} // namespace

std::vector<ListedSurvey> ListFolder(const fs::path& folder,
                                     const std::function<void(std::size_t)>& progress)
{
    const auto found = FilesBelow(folder, progress);
    std::vector<ListedSurvey> surveys;
    for (const auto& [stem, files] : found) {
        surveys.push_back(ListedFrom(files));
        if (progress && surveys.size() % kSteps == 0) progress(found.size() + surveys.size());
    }
    return Sorted(std::move(surveys));
}

std::string TextOf(const std::vector<ListedSurvey>& surveys)
{
    std::string text;
    const Head* before = nullptr;
    for (const auto& listed : surveys) {
        const auto& head = listed.head;
        const bool client = before == nullptr || before->client != head.client;
        const bool site = client || before->site != head.site;
        const bool tube = site || before->tube != head.tube;
        if (client) text += head.client + "\n";
        if (site) text += "  " + head.site + "\n";
        if (tube) text += "    " + head.tube + "\n";
        text += "      " + head.readout + "  " + head.date + "  " + head.time + "  " + head.depth +
                " m  " + Shown(listed.path) +
                (listed.hasData ? "" : "  (without its data report)") +
                (listed.hasHead ? "" : "  (without its head report)") + "\n";
        before = &head;
    }
    return text;
}

} // namespace tarvex::survey
