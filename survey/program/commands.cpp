#include "survey/program/commands.h"

#include "survey/check.h"
#include "survey/json.h"
#include "survey/load.h"
#include "survey/output_file.h"
#include "survey/program/pictures.h"
#include "survey/program/show_window.h"
#include "survey/table.h"
#include "survey/xlsx.h"

#include <chrono>
#include <iostream>
#include <stdexcept>

namespace tarvex::survey
{

namespace
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

void PutText(const std::string& path, const Survey& survey, const std::string& text)
{
    if (path == "-")
        std::cout << text;
    else if (!path.empty())
        WriteText(path, {survey.files.begin(), survey.files.end()}, text);
}

int Export(const Options& options)
{
    const auto survey = Load(options.files.front());
    const auto verdict = Check(survey, options.limits);
    PutText(options.exports.csv, survey, CsvOf(survey, options.csv));
    PutText(options.exports.json, survey, JsonOf(survey, verdict));
    if (!options.exports.xlsx.empty())
        WriteOutput(options.exports.xlsx, {survey.files.begin(), survey.files.end()},
                    [&](const std::filesystem::path& part) { WriteXlsx(survey, verdict, part); });
    if (options.exports.AnyPicture()) WritePictures(options, survey, verdict);
    return kGood;
}

int List(const Options& options)
{
    using Clock = std::chrono::steady_clock;
    auto due = Clock::now() + std::chrono::seconds(1);
    const auto surveys = ListFolder(options.files.front(), [&](std::size_t count) {
        if (Clock::now() < due) return;
        due += std::chrono::seconds(1);
        std::cerr << "tarvex-survey: " << count << " files so far\n";
    });
    std::cout << (options.json ? JsonOf(surveys) : TextOf(surveys));
    return kGood;
}

int RunCommand(const Options& options)
{
    switch (options.command) {
    case Command::Show:
        return Show(options);
    case Command::Check:
        return CheckAll(options);
    case Command::Compare:
        return CompareAll(options);
    case Command::Export:
        return Export(options);
    case Command::List:
        return List(options);
    case Command::Window:
        return ShowWindow(options);
    }
    return kUnusable;
}
} // namespace

int Run(const Options& options)
{
    try {
        const int status = RunCommand(options);
        // A full disk shows here at the latest.
        if (std::cout.flush()) return status;
        std::cerr << "tarvex-survey: the output cannot be written\n";
    } catch (const Refusal& refusal) {
        std::cout.flush();
        std::cerr << "tarvex-survey: " << refusal.what() << "\n";
    }
    return kUnusable;
}

} // namespace tarvex::survey
