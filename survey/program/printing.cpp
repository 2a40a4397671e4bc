#include "survey/program/printing.h"

#include "survey/checks/check.h"
#include "survey/checks/verdict_text.h"
#include "survey/comparison/compare_text.h"
#include "survey/export/json.h"
#include "survey/export/table.h"
#include "survey/files/listing.h"
#include "survey/files/listing_text.h"
#include "survey/files/load.h"
#include "survey/files/paced_progress.h"
#include "survey/files/refusal.h"
#include "survey/files/report_names.h"

#include <algorithm>
#include <functional>
#include <iostream>
#include <span>

namespace tarvex::survey
{

namespace
{
/// Works on each file, also after one that cannot be used: at the borehole the others count.
/// Returns the worst status.
int ForEach(std::span<const std::string> files, const std::function<int(const std::string&)>& work)
{
    int status = kGood;
    for (const auto& file : files)
        try {
            status = std::max(status, work(file));
        } catch (const Refusal& refusal) {
            std::cout.flush();
            std::cerr << "tarvex-survey: " << refusal.what() << "\n";
            status = kUnusable;
        }
    return status;
}
} // namespace

int Show(const Options& options)
{
    return ForEach(options.files, [&](const std::string& file) {
        const auto survey = Load(file);
        std::cout << (options.json ? JsonOf(survey) : TableOf(survey));
        return kGood;
    });
}

int CheckAll(const Options& options)
{
    return ForEach(options.files, [&](const std::string& file) {
        const auto survey = Load(file);
        const auto verdict = Check(survey, options.limits);
        if (options.json) {
            std::cout << JsonOf(survey, verdict);
        } else {
            if (options.files.size() > 1) std::cout << Shown(file) << ": ";
            std::cout << TextOf(verdict);
        }
        return verdict.Good() ? kGood : kCheckFailed;
    });
}

int CompareAll(const Options& options)
{
    const auto base = Load(options.files.front());
    return ForEach(std::span(options.files).subspan(1), [&](const std::string& file) {
        const auto comparison = Compare(base, Load(file), options.sumFrom);
        if (!comparison.refusal.empty())
            throw Refusal(Shown(file) + " is of another tube: " + comparison.refusal);
        if (options.json)
            std::cout << JsonOf(comparison, options.probe);
        else
            std::cout << Shown(file) << " against " << Shown(options.files.front()) << "\n\n"
                      << TextOf(comparison, options.probe);
        return comparison.Suspicious() ? kCheckFailed : kGood;
    });
}

int List(const Options& options)
{
    const auto say = [](std::size_t count) {
        std::cerr << "tarvex-survey: " << count << " files so far\n";
    };
    const auto surveys = ListFolder(options.files.front(), Paced(say));
    std::cout << (options.json ? JsonOf(surveys) : TextOf(surveys));
    return kGood;
}

} // namespace tarvex::survey
