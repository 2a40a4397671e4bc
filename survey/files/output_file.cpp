#include "survey/files/output_file.h"

#include "survey/files/output_check.h"
#include "survey/files/refusal.h"
#include "survey/files/report_names.h"

#include <cerrno>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

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

void PutBytes(const fs::path& path, std::string_view bytes)
{
    errno = 0;
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        throw std::runtime_error(errno == 0 ? "the file system refuses it"
                                            : std::generic_category().message(errno));
}

void WriteText(const fs::path& path, const std::vector<fs::path>& inputs, std::string_view text)
{
    WriteOutput(path, inputs, [&](const fs::path& part) { PutBytes(part, text); });
}

} // namespace tarvex::survey
