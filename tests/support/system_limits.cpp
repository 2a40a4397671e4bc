#include "support/system_limits.h"

#include <csignal>
#include <stdexcept>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarvex::tests
{

namespace
{

constexpr uid_t kNobody = 65534;

void LimitFileSize(unsigned long long bytes)
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = static_cast<rlim_t>(bytes);
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) throw std::runtime_error("no limit for files");
}

int ExitStatusOf(const std::function<bool()>& check)
{
    if (geteuid() == 0 && setuid(kNobody) != 0) return 2;
    try {
        return check() ? 0 : 1;
    } catch (...) {
        return 3;
    }
}

} // namespace

bool FullDisk::Possible()
{
    return true;
}

FullDisk::FullDisk(std::size_t bytes)
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    before_ = limit.rlim_cur;
    signalBefore_ = std::signal(SIGXFSZ, SIG_IGN); // so that the write fails instead
    LimitFileSize(bytes);
}

FullDisk::~FullDisk()
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = static_cast<rlim_t>(before_);
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, signalBefore_);
}

bool HoldsForAnyUser(const std::function<bool()>& check)
{
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no second process");
    if (child == 0) _exit(ExitStatusOf(check));
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace tarvex::tests
