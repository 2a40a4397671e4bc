#include "common/entry.h"
#include "common/require.h"
#include "common/target.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace
{

/// All that a target writes lies below here, in memory where there is such a folder.
std::filesystem::path Scratch()
{
    const std::filesystem::path memory = "/dev/shm";
    const auto& place =
        ::access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
    return place / ("tarvex-fuzz-" + std::to_string(::getpid()));
}

void RemoveScratch()
{
    std::error_code ignored;
    std::filesystem::current_path("/", ignored);
    std::filesystem::remove_all(Scratch(), ignored);
}

} // namespace

extern "C" {

int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    std::filesystem::create_directories(Scratch());
    ::setenv("TMPDIR", Scratch().c_str(), 1);
    static_cast<void>(std::atexit(RemoveScratch));
    // As in the program: a file size limit is a failed write.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    // What the tests' own helpers report is a fault found.
    GTEST_FLAG_SET(break_on_failure, true);
    static_cast<void>(std::signal(SIGTRAP, [](int /*signal*/) { std::abort(); }));
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        tarvex::fuzz::RunInput({reinterpret_cast<const char*>(data), size});
    } catch (const std::exception& failure) {
        tarvex::fuzz::Broken(failure.what());
    }
    return 0;
}
}
