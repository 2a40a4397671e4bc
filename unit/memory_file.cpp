#include "unit/memory_file.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace tarvex::unit
{

namespace
{
std::runtime_error Failure(const std::filesystem::path& path, const std::string& reason)
{
    return std::runtime_error("memory file \"" + path.string() + "\": " + reason);
}
} // namespace

Memory LoadMemory(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file || std::filesystem::is_directory(path)) throw Failure(path, "cannot be read");
    std::string image(std::istreambuf_iterator<char>(file), {});
    try {
        return Memory(std::move(image));
    } catch (const std::invalid_argument& error) {
        throw Failure(path, error.what());
    }
}

void SaveMemory(const Memory& memory, const std::filesystem::path& path)
{
    auto part = path;
    part += ".part";
    std::ofstream file(part, std::ios::binary | std::ios::trunc);
    file << memory.Image();
    file.close();
    std::error_code error;
    if (file) std::filesystem::rename(part, path, error);
    if (!file || error) throw Failure(path, "cannot be written");
}

} // namespace tarvex::unit
