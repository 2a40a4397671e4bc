#include "survey/files/output_file.h"

#include "survey/files/load.h"
#include "survey/reports/reader.h"
#include "survey/files/report_file.h"
#include "survey/model/text.h"
#include "survey/files/report_names.h"
#include "survey/files/refusal.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>
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
    const auto name = Lower(path.filename().string());
    return name.ends_with("-dat.dat") || name.ends_with("-num.dat") ||
           std::ranges::find(kNames, name) != kNames.end();
}

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

/// A name beside a path that nobody else has.
fs::path NameBeside(const fs::path& path)
{
    for (int number = 0;; ++number) {
        auto name = path;
        name += ".part" + std::to_string(number);
        std::error_code error;
        if (!fs::exists(fs::symlink_status(name, error))) return name;
    }
}
} // namespace

void WriteOutput(const fs::path& path, const std::vector<fs::path>& inputs,
                 const std::function<void(const fs::path&)>& write)
{
    RequireSafe(path, inputs);
    const auto part = NameBeside(path);
    try {
        write(part);
        fs::rename(part, path);
    } catch (const std::exception& failure) {
        std::error_code error;
        fs::remove(part, error);
        throw Refusal(Shown(path) + " cannot be written: " + failure.what());
    }
}

void WriteText(const fs::path& path, const std::vector<fs::path>& inputs, std::string_view text)
{
    WriteOutput(path, inputs, [&](const fs::path& part) {
        std::ofstream file(part, std::ios::binary);
        file.write(text.data(), static_cast<std::streamsize>(text.size()));
        file.close();
        if (!file) throw std::runtime_error("the file system refuses it");
    });
}

} // namespace tarvex::survey
