// The start and the memory of the manager against those of an empty window, on the X display of
// DISPLAY.

#include "row.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace
{

using Clock = std::chrono::steady_clock;

constexpr auto kRest = std::chrono::seconds(4); // the splash has given way to the panel by then
constexpr int kPatience = 20'000;               // milliseconds

struct Sample {
    double seconds = 0;   ///< from the start of the process to its first window on the screen
    double megabytes = 0; ///< resident at rest
};

/// The display, which reports every window that comes onto it.
class Display
{
public:
    Display() : connection_(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(connection_) != 0) {
            std::cerr << "start_bench: no X display\n";
            std::exit(1);
        }
        const xcb_setup_t* setup = xcb_get_setup(connection_);
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_, xcb_setup_roots_iterator(setup).data->root,
                                     XCB_CW_EVENT_MASK, &events);
        xcb_flush(connection_);
    }
    ~Display() { xcb_disconnect(connection_); }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Drops what has been reported so far.
    void Forget()
    {
        while (Next()) {
        }
    }

    void WaitForWindow()
    {
        for (;;) {
            while (const auto event = Next()) {
                if ((event->response_type & 0x7F) == XCB_MAP_NOTIFY) return;
            }
            pollfd descriptor{xcb_get_file_descriptor(connection_), POLLIN, 0};
            if (poll(&descriptor, 1, kPatience) <= 0) {
                std::cerr << "start_bench: no window comes\n";
                std::exit(1);
            }
        }
    }

private:
    using Event = std::unique_ptr<xcb_generic_event_t, decltype(&std::free)>;
    Event Next() { return {xcb_poll_for_event(connection_), &std::free}; }

    xcb_connection_t* connection_;
};

double ResidentMegabytes(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) return std::stod(line.substr(6)) / 1024;
    }
    return 0;
}

Sample Run(Display& display, const char* program)
{
    display.Forget();
    const auto start = Clock::now();
    const pid_t process = fork();
    if (process == 0) {
        execl(program, program, nullptr);
        _exit(127);
    }
    display.WaitForWindow();
    Sample sample{std::chrono::duration<double>(Clock::now() - start).count(), 0};
    std::this_thread::sleep_for(kRest);
    sample.megabytes = ResidentMegabytes(process);
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    return sample;
}

double Median(const std::vector<Sample>& samples, double Sample::*value)
{
    std::vector<double> values;
    values.reserve(samples.size());
    for (const Sample& sample : samples)
        values.push_back(sample.*value);
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char* argv[])
{
    const int runs = argc > 1 ? std::stoi(argv[1]) : 5;
    const auto folder = std::filesystem::temp_directory_path() / "tarvex-start-bench";
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);

    Display display;
    std::vector<Sample> manager;
    std::vector<Sample> empty;
    for (int run = 0; run < runs; ++run) { // in turns, so that both meet the same machine
        empty.push_back(Run(display, EMPTY_WINDOW));
        manager.push_back(Run(display, TARVEX_MANAGER));
    }
    const double start = Median(manager, &Sample::seconds);
    const double emptyStart = Median(empty, &Sample::seconds);
    const double memory = Median(manager, &Sample::megabytes);
    const double emptyMemory = Median(empty, &Sample::megabytes);
    using tarvex::bench::Shown;
    tarvex::bench::Print(
        {"start to the first window, against " + Shown(1000 * emptyStart) + " ms of an empty one",
         start / emptyStart, "x", "<= 1.25"});
    tarvex::bench::Print(
        {"resident at rest, against " + Shown(emptyMemory) + " MB of an empty window",
         memory / emptyMemory, "x", "<= 1.25"});
    std::filesystem::remove_all(folder);
}
