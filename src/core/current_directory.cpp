#include "core/current_directory.h"

#include "core/failure.h"

#include <system_error>

namespace tarvex
{

std::filesystem::path SystemCurrentDirectory()
{
    std::error_code error;
    auto directory = std::filesystem::current_path(error);
    if (error) throw RunTimeFailure("Path not found");
    return directory;
}

} // namespace tarvex
