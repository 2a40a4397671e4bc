#include "survey/files/load.h"
#include "survey/files/refusal.h"
#include "survey/files/separate_folders.h"
#include "survey/window/main_window.h"

#include <string>
#include <system_error>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

/// Paths as the operator gave them, parted by what they are.
struct Parted {
    std::vector<fs::path> folders; // those of the reports too
    std::vector<fs::path> reports;
    std::vector<std::string> refusals;
};

void AddReport(Parted& parted, const fs::path& file)
{
    try {
        RequireReport(file); // what is refused changes nothing on view
    } catch (const Refusal& refusal) {
        parted.refusals.emplace_back(refusal.what());
        return;
    }
    parted.reports.push_back(file);
    const auto folder = file.parent_path();
    parted.folders.push_back(folder.empty() ? "." : folder);
}

Parted PartedFrom(const std::vector<fs::path>& paths)
{
    Parted parted;
    for (const auto& path : paths)
        if (std::error_code error; fs::is_directory(path, error))
            parted.folders.push_back(path);
        else
            AddReport(parted, path);
    return parted;
}

/// The first refusal, and how many more there are.
std::string SentenceOf(const std::vector<std::string>& refusals)
{
    const auto more = refusals.size() - 1;
    return refusals.front() + (more == 0 ? "" : " (and " + std::to_string(more) + " more)");
}
} // namespace

void MainWindow::Open(const std::vector<fs::path>& paths)
{
    const auto parted = PartedFrom(paths);
    if (!parted.folders.empty()) {
        folders_ = Separate(parted.folders);
        opened_ = parted.reports;
        List();
        if (!opened_.empty())
            Choose(opened_);
        else
            Choose(listed_.empty() ? std::vector<fs::path>{} : std::vector{listed_.back().path});
    }
    if (!parted.refusals.empty()) Report(SentenceOf(parted.refusals));
}

} // namespace tarvex::survey
