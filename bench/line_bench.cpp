// What the line costs the commands below the window: their wall time against the line's own, and
// the processor time of the manager. The whole program's download is in program_bench.

#include "bench_world.h"
#include "blocks/read_all_blocks.h"
#include "blocks/read_block.h"
#include "blocks/set_all.h"
#include "blocks/total_reset.h"
#include "row.h"

#include <QCoreApplication>

#include <algorithm>
#include <functional>
#include <string>
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

void PrintCost(const std::string& what, double measured, const char* unit, double bound)
{
    Print({what, measured, unit, "<= " + Shown(bound)});
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
    PrintCost("Read Block", Median(ratios), "x line", 1.02);
}

void MeasureReadAllBlocks()
{
    BenchWorld world({"--paced"});
    const Cost cost = world.Measure(
        [&](DeviceLink& link) { ReadAllBlocks(world.panel, world.state, link, world.view); });
    PrintCost("Read All Blocks", cost.wall / LineTime(300), "x line", 1.03);
    PrintCost("Read All Blocks, processor", 100 * cost.processor / cost.whole, "% of wall", 2);
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
    PrintCost(name, cost.whole - kExchanges * secondsAnExchange, "s over", kTick);
    PrintCost(processor, 100 * cost.processor / cost.whole, "% of wall", 2);
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
    PrintCost("endless wait, processor a second", cost.processor / kSeconds, "s", 0.01);
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
    PrintCost("five seconds after a pulled adapter, processor", ProcessorSeconds() - before, "s",
              0.05);
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const int runs = argc > 1 ? std::stoi(argv[1]) : 3;
    MeasureReadBlock(runs);
    MeasureReadAllBlocks();
    MeasureHeaderWriting();
    MeasureEndlessWait();
    MeasurePulledAdapter();
}
