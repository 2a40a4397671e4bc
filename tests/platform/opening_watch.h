#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/inotify.h>
#include <unistd.h>

namespace tarvex::tests
{

/// Notes each opening of a device, by whichever process.
class OpeningWatch
{
public:
    explicit OpeningWatch(const std::filesystem::path& device)
        : descriptor_(::inotify_init1(IN_NONBLOCK))
    {
        EXPECT_GE(::inotify_add_watch(descriptor_, device.c_str(), IN_OPEN), 0);
    }
    ~OpeningWatch() { ::close(descriptor_); }
    OpeningWatch(const OpeningWatch&) = delete;
    OpeningWatch& operator=(const OpeningWatch&) = delete;

    /// True when the device was opened since the last asking.
    bool Opened() const
    {
        inotify_event event{};
        bool opened = false;
        while (::read(descriptor_, &event, sizeof event) > 0)
            opened = true;
        return opened;
    }

private:
    int descriptor_;
};

} // namespace tarvex::tests
