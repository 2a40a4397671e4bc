#include "survey/window/export_file.h"

#include "survey/export/csv.h"
#include "survey/export/json.h"
#include "survey/export/xlsx.h"
#include "survey/files/output_file.h"
#include "survey/files/refusal.h"
#include "survey/files/report_names.h"
#include "survey/model/text.h"

#include <vector>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;
} // namespace

std::string EndingOf(const fs::path& path)
{
    return Lower(path.extension().native());
}

void WriteAs(const PictureSubject& subject, const fs::path& path)
{
    const std::vector<fs::path> inputs(subject.survey.files.begin(), subject.survey.files.end());
    const auto ending = EndingOf(path);
    const auto write = [&](auto writer) {
        WriteOutput(path, inputs, [&](const fs::path& part) { writer(subject, part); });
    };
    if (ending == ".pdf") return write(WritePdf);
    if (ending == ".svg") return write(WriteSvg);
    if (ending == ".png") return write(WritePng);
    if (ending == ".csv") return WriteText(path, inputs, CsvOf(subject.survey, DesktopForm()));
    if (ending == ".json") return WriteText(path, inputs, JsonOf(subject.survey, subject.verdict));
    if (ending == ".xlsx")
        return WriteOutput(path, inputs, [&](const fs::path& part) {
            WriteXlsx(subject.survey, subject.verdict, part);
        });
    throw Refusal(Shown(path) + " is not written: its name must end in .pdf, .svg, .png, .xlsx, "
                                ".csv or .json");
}

} // namespace tarvex::survey
