#include "common/last_input.h"

#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace tarvex::fuzz
{

namespace
{

// Never destroyed: what comes to light at the very end, a leak, writes its input too.
std::string& file = *new std::string;
std::string_view running;

void Say(std::string_view text)
{
    static_cast<void>(!::write(STDERR_FILENO, text.data(), text.size()));
}

/// Only what a signal handler may do.
void WriteInput(int signal)
{
    if (signal == SIGALRM) Say("\nDOES NOT HOLD: a run ends, or sleeps\n");
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (descriptor >= 0) static_cast<void>(!::write(descriptor, running.data(), running.size()));
    Say("the input is in ");
    Say(file);
    Say("\n");
    ::_exit(1);
}

} // namespace

void KeepLastInputIn(const std::filesystem::path& folder)
{
    file =
        folder / ("found-" + std::to_string(std::time(nullptr)) + "-" + std::to_string(::getpid()));
    for (const int signal : {SIGABRT, SIGALRM, SIGILL})
        static_cast<void>(std::signal(signal, WriteInput));
}

void RememberInput(std::string_view input)
{
    running = input;
}

} // namespace tarvex::fuzz

// A fault that a sanitizer finds ends in SIGABRT too. What a run has freed need not be kept out of
// use for longer than some runs, nor filled: both take a sixth of the time.
extern "C" {
const char* __asan_default_options() // NOLINT(bugprone-reserved-identifier): its name
{
    return "abort_on_error=1:malloc_context_size=1:quarantine_size_mb=1:"
           "thread_local_quarantine_size_kb=64:max_malloc_fill_size=0";
}
const char* __ubsan_default_options() // NOLINT(bugprone-reserved-identifier): its name
{
    return "abort_on_error=1:print_stacktrace=1";
}
}
