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

#include <iostream>

namespace tarvex::survey
{

int Show(const Options& options)
{
    for (const auto& file : options.files) {
        const auto survey = Load(file);
        std::cout << (options.json ? JsonOf(survey) : TableOf(survey));
    }
    return kGood;
}

int CheckAll(const Options& options)
{
    int status = kGood;
    for (const auto& file : options.files) {
        const auto survey = Load(file);
        const auto verdict = Check(survey, options.limits);
        if (!verdict.Good()) status = kCheckFailed;
        if (options.json) {
            std::cout << JsonOf(survey, verdict);
            continue;
        }
        if (options.files.size() > 1) std::cout << Shown(file) << ": ";
        std::cout << TextOf(verdict);
    }
    return status;
}

int CompareAll(const Options& options)
{
    int status = kGood;
    const auto base = Load(options.files.front());
    for (std::size_t i = 1; i < options.files.size(); ++i) {
        const auto& file = options.files[i];
        const auto comparison = Compare(base, Load(file), options.sumFrom);
        if (!comparison.refusal.empty())
            throw Refusal(Shown(file) + " is of another tube: " + comparison.refusal);
        if (comparison.Suspicious()) status = kCheckFailed;
        if (options.json)
            std::cout << JsonOf(comparison, options.probe);
        else
            std::cout << Shown(file) << " against " << Shown(options.files.front()) << "\n\n"
                      << TextOf(comparison, options.probe);
    }
    return status;
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
