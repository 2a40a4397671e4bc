// What the line costs: the commands' wall time against the line's own, and the processor time of
// the manager.

#include "bench_world.h"
#include "blocks/read_all_blocks.h"
#include "blocks/read_block.h"
#include "blocks/set_all.h"
#include "blocks/total_reset.h"
#include "download/block_download.h"
#include "link/memory_page.h"

#include <QCoreApplication>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{

using namespace tarvex;
using namespace tarvex::bench;

constexpr double kCharacter = 11.0 / 9600; // seconds: one start, eight data and two stop bits
constexpr int kExchangeLength = 1 + 1 + 7 + 50;

double LineTime(int exchanges)
{
    return exchanges * kExchangeLength * kCharacter;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void Row(const char* what, double measured, const char* unit, double bound, bool atMost = true)
{
    const bool reached = atMost ? measured <= bound : measured >= bound;
    std::printf("| %-58s | %10.4f %-9s | %s %8.4f | %-3s |\n", what, measured, unit,
                atMost ? "<=" : ">=", bound, reached ? "yes" : "NO");
    static_cast<void>(std::fflush(stdout));
}

/// Two processes that take all the processor time they can get.
class Hogs
{
public:
    Hogs()
    {
        for (pid_t& hog : hogs_) {
            hog = fork();
            if (hog != 0) continue;
            std::atomic<unsigned> count = 0;
            for (;;)
                ++count;
        }
    }
    ~Hogs()
    {
        for (const pid_t hog : hogs_) {
            kill(hog, SIGKILL);
            waitpid(hog, nullptr, 0);
        }
    }
    Hogs(const Hogs&) = delete;
    Hogs& operator=(const Hogs&) = delete;

private:
    pid_t hogs_[2] = {};
};

Cost Download(BenchWorld& world)
{
    world.panel.downloadBlock.SetText("03");
    return world.Measure([&](DeviceLink& link) {
        BlockDownload(world.panel, world.state, link, world.view, world.line.pump);
    });
}

void MeasureDownload(int runs, bool hogged)
{
    std::vector<double> ratios;
    std::vector<double> processor;
    for (int run = 0; run < runs; ++run) {
        BenchWorld world({"--paced"});
        const Cost cost = Download(world);
        ratios.push_back(cost.wall / LineTime(210));
        processor.push_back(cost.processor);
    }
    if (hogged) {
        Row("download of 200 pages, two hogs beside it", Median(ratios), "x line", 1.03);
    } else {
        Row("download of 200 pages", Median(ratios), "x line", 1.01);
        Row("download of 200 pages, processor", Median(processor), "s", 0.2);
    }
}

/// The unit on a USB adapter whose latency timer runs for so many milliseconds: the answers
/// wait for the timer, twice an exchange.
void MeasureThroughAdapter(int runs, const char* milliseconds, double bound)
{
    std::vector<double> ratios;
    for (int run = 0; run < runs; ++run) {
        BenchWorld world({"--paced", "--adapter", milliseconds});
        ratios.push_back(Download(world).wall / LineTime(210));
    }
    const std::string what =
        "download of 200 pages, USB adapter of " + std::string(milliseconds) + " ms";
    Row(what.c_str(), Median(ratios), "x line", bound);
}

void MeasureReadBlock(int runs)
{
    BenchWorld world({"--paced"});
    std::vector<double> ratios;
    for (int run = 0; run < runs; ++run) {
        const Cost cost = world.Measure(
            [&](DeviceLink& link) { ReadBlock(world.panel, world.state, link, world.view); });
        ratios.push_back(cost.wall / LineTime(10));
    }
    Row("Read Block", Median(ratios), "x line", 1.02);
}

void MeasureReadAllBlocks()
{
    BenchWorld world({"--paced"});
    const Cost cost = world.Measure(
        [&](DeviceLink& link) { ReadAllBlocks(world.panel, world.state, link, world.view); });
    Row("Read All Blocks", cost.wall / LineTime(300), "x line", 1.03);
    Row("Read All Blocks, processor", 100 * cost.processor / cost.whole, "% of wall", 2);
}

/// A settle wait ends on a tick and the next begins within the same one, so that the commands go
/// from tick to tick: each of their 31 exchanges takes just its bound.
void MeasureWriting(const char* name, double secondsAnExchange,
                    const std::function<void(BenchWorld&, DeviceLink&)>& command)
{
    constexpr int kExchanges = 31;
    constexpr double kTick = 0.1;
    BenchWorld world({"--paced"});
    const Cost cost = world.Measure([&](DeviceLink& link) { command(world, link); });
    const std::string processor = std::string(name) + ", processor";
    Row(name, cost.whole - kExchanges * secondsAnExchange, "s over", kTick);
    Row(processor.c_str(), 100 * cost.processor / cost.whole, "% of wall", 2);
}

void MeasureHeaderWriting()
{
    MeasureWriting("Set All, above its settle bounds", 0.2,
                   [](BenchWorld& world, DeviceLink& link) {
                       SetAll(world.panel, world.state, link, world.view, world.line.pump);
                   });
    MeasureWriting("Total Reset, above its settle bounds", 0.4,
                   [](BenchWorld& world, DeviceLink& link) {
                       TotalReset(world.panel, world.state, link, world.view, world.line.pump);
                   });
}

void MeasureEndlessWait()
{
    constexpr int kSeconds = 10;
    BenchWorld world({"--fault", "silent@page1"});
    world.EndLater(kSeconds * 1000);
    const Cost cost = world.Measure(
        [&](DeviceLink& link) { ReadBlock(world.panel, world.state, link, world.view); });
    Row("endless wait, processor a second", cost.processor / kSeconds, "s", 0.01);
}

void MeasurePulledAdapter()
{
    BenchWorld world({"--fault", "silent@page1"});
    double before = 0;
    world.Later(1000, [&] {
        before = ProcessorSeconds();
        world.unit.Pull();
    });
    world.EndLater(6000);
    world.Measure([&](DeviceLink& link) { ReadBlock(world.panel, world.state, link, world.view); });
    Row("five seconds after a pulled adapter, processor", ProcessorSeconds() - before, "s", 0.05);
}

/// Wakes and reads pages through the system's own calls, blocking.
double BlockingExchangesPerSecond(const char* device, int exchanges)
{
    const int line = open(device, O_RDWR | O_NOCTTY);
    const auto take = [line](std::size_t count) {
        char buffer[64];
        while (count > 0)
            count -= static_cast<std::size_t>(std::max<ssize_t>(read(line, buffer, count), 0));
    };
    const auto start = std::chrono::steady_clock::now();
    for (int exchange = 0; exchange < exchanges; ++exchange) {
        if (write(line, "}", 1) != 1) std::abort();
        take(1);
        if (write(line, "a02100\r", 7) != 7) std::abort();
        take(50);
    }
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    close(line);
    return exchanges / wall.count();
}

void MeasureUnpaced(int runs)
{
    std::vector<double> ratios;
    std::vector<double> rates;
    BenchWorld world({});
    for (int run = 0; run < runs; ++run) {
        constexpr int kExchanges = 5000;
        const Cost cost = world.Measure([&](DeviceLink& link) {
            world.state.readAddrBlock = "02";
            world.state.readAddrBank = "1";
            world.state.readAddrPage = "00";
            link.OpenPort();
            for (int exchange = 0; exchange < kExchanges; ++exchange) {
                link.UntimedWake();
                ReadPage(link, world.panel.readAddress, world.state);
            }
            link.ClosePort();
        });
        const double ours = kExchanges / cost.wall;
        rates.push_back(ours);
        ratios.push_back(ours /
                         BlockingExchangesPerSecond((world.folder / "com1").c_str(), kExchanges));
    }
    Row("exchanges a second, unpaced", Median(rates), "", 0, false);
    Row("the same against a blocking loop", Median(ratios), "x", 0.7, false);
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const int runs = argc > 1 ? std::stoi(argv[1]) : 3;
    std::printf("| %-58s | %-20s | %-11s | met |\n", "what", "measured (median)", "to reach");
    std::printf("|---|---|---|---|\n");
    MeasureReadBlock(runs);
    MeasureDownload(runs, false);
    {
        const Hogs hogs;
        MeasureDownload(runs, true);
    }
    MeasureThroughAdapter(runs, "16", 1.43);
    MeasureThroughAdapter(runs, "1", 1.03);
    MeasureReadAllBlocks();
    MeasureHeaderWriting();
    MeasureEndlessWait();
    MeasurePulledAdapter();
    MeasureUnpaced(runs);
}
