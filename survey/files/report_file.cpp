#include "survey/files/report_file.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tarvex::survey
{

namespace
{
class Descriptor
{
public:
    explicit Descriptor(const std::filesystem::path& path)
        // A pipe without a writer must not hold the program up, a terminal not become its own.
        : number_(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC))
    {
    }
    ~Descriptor()
    {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }

private:
    int number_;
};

FileBytes Refused(std::string reason)
{
    return {{}, std::move(reason)};
}

FileBytes SystemRefusal()
{
    return Refused("it cannot be read: " + std::generic_category().message(errno));
}

FileBytes ReadToEnd(int descriptor)
{
    FileBytes file;
    std::array<char, 65536> piece{};
    for (;;) {
        const auto count = ::read(descriptor, piece.data(), piece.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return SystemRefusal();
        if (count == 0) return file;
        file.bytes.append(piece.data(), static_cast<std::size_t>(count));
        // Some files grow while they are read, and some say that they are empty and are not.
        if (file.bytes.size() > kMostBytes) return Refused("it is longer than any report");
    }
}
} // namespace

FileBytes ReadBytes(const std::filesystem::path& path)
{
    // Opening some devices already does something, so the file is looked at first; what is opened
    // is looked at again, for it may have changed in between.
    struct stat state {
    };
    if (::stat(path.c_str(), &state) != 0) return SystemRefusal();
    if (!S_ISREG(state.st_mode)) return Refused("it is no ordinary file");
    const Descriptor descriptor(path);
    if (descriptor.Number() < 0 || ::fstat(descriptor.Number(), &state) != 0)
        return SystemRefusal();
    if (!S_ISREG(state.st_mode)) return Refused("it is no ordinary file");
    if (state.st_size > static_cast<off_t>(kMostBytes))
        return Refused("it is longer than any report");
    return ReadToEnd(descriptor.Number());
}

} // namespace tarvex::survey
