#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <type_traits>

namespace tarvex::tests
{

/// Leaves out a test of a full disk on a system that limits no file's size.
#define SKIP_WHERE_NO_DISK_FILLS()                                                                 \
    if (!::tarvex::tests::FullDisk::Possible())                                                    \
    GTEST_SKIP() << "this system limits the size of no file of a process"

/// Leaves out a test of what one user lets another do, on a system whose folders know no such
/// thing.
#define SKIP_WHERE_FOLDERS_HAVE_NO_MODE()                                                          \
    if (!::tarvex::tests::kFoldersHaveModes)                                                       \
    GTEST_SKIP() << "this system's folders have no mode bits"

/// Leaves out a test of a link where the library makes none.
#define SKIP_WHERE_NO_LINK_IS_MADE()                                                               \
    if (!::tarvex::tests::kFoldersHaveModes) GTEST_SKIP() << "no links are made on this system"

/// Leaves out a test of paths that are bytes where they are UTF-16.
#define SKIP_WHERE_PATHS_ARE_UNICODE()                                                             \
    if (!std::is_same_v<std::filesystem::path::value_type, char>)                                  \
    GTEST_SKIP() << "this system's paths are UTF-16"

/// False where a folder that may not be written, or that belongs to another user, cannot be made by
/// mode bits.
#ifdef _WIN32
inline constexpr bool kFoldersHaveModes = false;
#else
inline constexpr bool kFoldersHaveModes = true;
#endif

/// While it lives, no file of this process grows beyond that many bytes: a disk that becomes full
/// in the middle of a write.
class FullDisk
{
public:
    /// False on a system that knows no such limit; there is no object then.
    static bool Possible();

    explicit FullDisk(std::size_t bytes);
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    unsigned long long before_ = 0;
    void (*signalBefore_)(int) = nullptr;
};

/// True when `check`, run by a user without privileges in a process of its own, gives true. On
/// Windows it runs as it is: tests that need another user are left out there.
bool HoldsForAnyUser(const std::function<bool()>& check);

} // namespace tarvex::tests
