#include "survey/program/exporting.h"

#include "survey/checks/check.h"
#include "survey/export/csv.h"
#include "survey/export/json.h"
#include "survey/export/xlsx.h"
#include "survey/files/load.h"
#include "survey/files/output_file.h"
#include "survey/program/pictures.h"

#include <iostream>

namespace tarvex::survey
{

namespace
{
void PutText(const std::string& path, const Survey& survey, const std::string& text)
{
    if (path == "-")
        std::cout << text;
    else if (!path.empty())
        WriteText(path, {survey.files.begin(), survey.files.end()}, text);
}
} // namespace

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

} // namespace tarvex::survey
