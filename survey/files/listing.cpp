#include "survey/files/listing.h"

#include "survey/files/folder_scan.h"
#include "survey/files/listing_order.h"
#include "survey/files/report_file.h"
#include "survey/files/report_names.h"
#include "survey/model/readable.h"
#include "survey/model/text.h"
#include "survey/reports/reader.h"

#include <utility>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

/// What the name of a report says: it holds the fields with all their blanks.
Head HeadFromName(const fs::path& path)
{
    constexpr std::size_t kWidth = 8 + 1 + 8 + 1 + 4 + 1 + 2;
    Head head;
    const auto name = path.filename().native();
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

ListedSurvey ListedFrom(const ReportPair& files)
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
} // namespace

std::vector<ListedSurvey> ListFolder(const fs::path& folder,
                                     const std::function<void(std::size_t)>& progress)
{
    const auto found = FindReports(folder, progress);
    std::vector<ListedSurvey> surveys;
    for (const auto& [stem, files] : found) {
        surveys.push_back(ListedFrom(files));
        if (progress && surveys.size() % kProgressSteps == 0)
            progress(found.size() + surveys.size());
    }
    return Sorted(std::move(surveys));
}

} // namespace tarvex::survey
