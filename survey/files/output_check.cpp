#include "survey/files/output_check.h"

#include "survey/files/refusal.h"
#include "survey/files/report_file.h"
#include "survey/files/report_names.h"
#include "survey/model/text.h"
#include "survey/reports/reader.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <system_error>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

/// Names under which the manager writes.
bool IsNameOfTheManager(const fs::path& path)
{
    static constexpr std::array<std::string_view, 3> kNames{"datiram.dat", "intestazione",
                                                            "tar_vex.mdb"};
    const auto name = Lower(path.filename().native());
    return name.ends_with("-dat.dat") || name.ends_with("-num.dat") ||
           std::ranges::find(kNames, name) != kNames.end();
}
} // namespace

void RequireSafe(const fs::path& path, const std::vector<fs::path>& inputs)
{
    const auto refuse = [&](const std::string& reason) {
        throw Refusal(Shown(path) + " is not written: " + reason);
    };
    if (IsNameOfTheManager(path)) refuse("the manager writes files of that name");
    std::error_code error;
    const auto state = fs::status(path, error);
    if (!fs::exists(state)) return;
    if (!fs::is_regular_file(state)) refuse("it is no ordinary file");
    for (const auto& input : inputs)
        if (fs::equivalent(path, input, error)) refuse("it is the report itself");
    if (Read(ReadBytes(path).bytes).kind != FileKind::None) refuse("it holds a report");
}

} // namespace tarvex::survey
