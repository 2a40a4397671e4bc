#include "real_line/open_files.h"

#include "real_line/usb_socket.h"

#include <algorithm>
#include <filesystem>

namespace tarvex::tests
{

namespace fs = std::filesystem;

std::vector<std::string> OpenFiles()
{
    std::vector<std::string> files;
    for (const auto& descriptor : fs::directory_iterator("/proc/self/fd")) {
        std::error_code closed; // meanwhile, by another thread
        const fs::path file = fs::read_symlink(descriptor, closed);
        if (!closed && file != kSocket) files.push_back(file);
    }
    return files;
}

bool HasPortOpen()
{
    return std::ranges::any_of(OpenFiles(), [](const std::string& file) {
        return file.starts_with("/dev/ttyUSB") || file.starts_with("/dev/ttyS1");
    });
}

} // namespace tarvex::tests
