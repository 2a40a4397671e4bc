#include "unit/program/link_file.h"

#include <stdexcept>
#include <string>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tarvex::unit
{

namespace
{
namespace fs = std::filesystem;

bool MayReplace(const fs::path& path)
{
    std::error_code error;
    const auto kind = fs::symlink_status(path, error).type();
    if (kind == fs::file_type::not_found) return true;
    if (kind != fs::file_type::symlink) return false;
    return !fs::exists(path, error) || fs::read_symlink(path, error).parent_path() == "/dev/pts";
}

std::runtime_error Failure(const fs::path& path, const std::string& reason)
{
    return std::runtime_error("link \"" + path.string() + "\": " + reason);
}
} // namespace

LinkFile::LinkFile(fs::path path, const fs::path& target) : path_(std::move(path)), target_(target)
{
    if (!MayReplace(path_)) throw Failure(path_, "something else of that name is there");
    auto fresh = path_;
    fresh += '.' + std::to_string(::getpid());
    std::error_code error;
    if (MayReplace(fresh)) fs::remove(fresh, error); // of a program of this number that was killed
    fs::create_symlink(target_, fresh, error);
    if (error) throw Failure(path_, error.message());
    fs::rename(fresh, path_, error);
    if (!error) return;
    std::error_code ignored;
    fs::remove(fresh, ignored);
    throw Failure(path_, error.message());
}

LinkFile::~LinkFile()
{
    std::error_code error;
    if (fs::read_symlink(path_, error) == target_ && !error) fs::remove(path_, error);
}

} // namespace tarvex::unit
