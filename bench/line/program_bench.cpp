// The whole program on the line, window and all, beside the least that a program can do with three
// libraries: program_bench [RUNS [ROW...]]. Every speaker talks to the same unit, and is measured
// by the unit's own log. Needs an X display for the rows "X".

#include "hogs.h"
#include "line/talk.h"
#include "row.h"

#include <QCoreApplication>

#include <algorithm>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <vector>

namespace
{

using namespace tarvex::bench;

const double kLine = 210 * kExchangeLength * kCharacter;

/// The medians over the runs of one speaker.
struct Figures {
    double ratio = 0;     ///< of the line
    double processor = 0; ///< seconds
    double median = 0;    ///< milliseconds of extra latency an exchange
    double slow = 0;      ///< the same, of the slowest of a hundred
    double rate = 0;      ///< exchanges a second
};

Figures MediansOf(const std::vector<Talk>& talks)
{
    const auto over = [&](const std::function<double(const Talk&)>& figure) {
        std::vector<double> values;
        values.reserve(talks.size());
        for (const Talk& talk : talks)
            values.push_back(figure(talk));
        return Median(values);
    };
    return {over([](const Talk& talk) { return talk.cost.seconds / kLine; }),
            over([](const Talk& talk) { return talk.processor; }),
            over([](const Talk& talk) { return 1000 * Quantile(talk.cost.extraLatency, 0.5); }),
            over([](const Talk& talk) { return 1000 * Quantile(talk.cost.extraLatency, 0.99); }),
            over([](const Talk& talk) {
                return static_cast<double>(talk.cost.exchanges) / talk.cost.seconds;
            })};
}

/// In turns, so that all speakers meet the same machine.
std::vector<Figures> Measure(const std::vector<Speaker>& speakers, const QStringList& unitOptions,
                             int runs)
{
    std::vector<std::vector<Talk>> talks(speakers.size());
    for (int run = 0; run < runs; ++run)
        for (std::size_t speaker = 0; speaker < speakers.size(); ++speaker)
            talks[speaker].push_back(Hold(speakers[speaker], unitOptions));
    std::vector<Figures> figures;
    figures.reserve(talks.size());
    for (const auto& ofSpeaker : talks)
        figures.push_back(MediansOf(ofSpeaker));
    return figures;
}

const Speaker kOffScreen{
    "the manager, off-screen", MANAGER_SESSION, true, {"QT_QPA_PLATFORM=offscreen"}};
const Speaker kUnderX{"the manager, under X", MANAGER_SESSION, true, {"QT_QPA_PLATFORM=xcb"}};
const std::vector<Speaker> kPeers = {{"libserialport", PEER_SERIALPORT},
                                     {"pyserial", PEER_PYSERIAL},
                                     {"the toolkit, blocking", PEER_TOOLKIT}};

void PrintPaced(const Speaker& manager, const Figures& ours, const Figures& best,
                const std::string& processorBound)
{
    const std::string who = ", " + manager.name;
    const double bound = std::min(1.004, best.ratio + 0.001);
    Print({"200 pages: wall" + who, ours.ratio, "x line", "<= " + Shown(bound), Shown(best.ratio),
           "1.0000"});
    Print(
        {"200 pages: processor" + who, ours.processor, "s", processorBound, Shown(best.processor)});
    Print({"extra latency an exchange: median" + who, ours.median, "ms", "", Shown(best.median),
           "0.0000"});
    Print({"extra latency an exchange: p99" + who, ours.slow, "ms", "<= 0.5", Shown(best.slow),
           "0.0000"});
}

/// Figure by figure the best of the peers.
Figures BestOf(const std::vector<Figures>& figures)
{
    Figures best = figures.front();
    for (const Figures& other : figures) {
        best.ratio = std::min(best.ratio, other.ratio);
        best.processor = std::min(best.processor, other.processor);
        best.median = std::min(best.median, other.median);
        best.slow = std::min(best.slow, other.slow);
    }
    return best;
}

void MeasurePaced(int runs)
{
    std::vector<Speaker> speakers = {kOffScreen, kUnderX};
    speakers.insert(speakers.end(), kPeers.begin(), kPeers.end());
    const auto figures = Measure(speakers, {"--paced", "--awake"}, runs);
    const std::vector<Figures> peers(figures.begin() + 2, figures.end());
    for (std::size_t peer = 0; peer < peers.size(); ++peer) {
        const std::string who = ", " + kPeers[peer].name;
        Print({"200 pages: wall" + who, peers[peer].ratio, "x line", "", "-", "1.0000"});
        Print({"200 pages: processor" + who, peers[peer].processor, "s", ""});
        Print({"extra latency an exchange: p99" + who, peers[peer].slow, "ms", ""});
    }
    PrintPaced(kOffScreen, figures[0], BestOf(peers), "<= 0.10");
    PrintPaced(kUnderX, figures[1], BestOf(peers), "<= 0.15");
}

void MeasureHogged(int runs)
{
    const Hogs hogs;
    const auto figures = Measure({kUnderX, kPeers.front()}, {"--paced"}, runs);
    Print({"200 pages, two hogs beside: wall, " + kUnderX.name, figures[0].ratio, "x line",
           "<= 1.01", Shown(figures[1].ratio), "1.0000"});
}

void MeasureThroughAdapter(const QString& milliseconds, const std::string& bound, int runs)
{
    const auto figures =
        Measure({kUnderX, kPeers.front()}, {"--paced", "--adapter", milliseconds}, runs);
    Print({"200 pages, adapter of " + milliseconds.toStdString() + " ms: wall, " + kUnderX.name,
           figures[0].ratio, "x line", bound, Shown(figures[1].ratio), "1.0000"});
}

void MeasureUnpaced(int runs)
{
    const auto figures = Measure({kOffScreen, kUnderX, kPeers.front()}, {}, 5 * runs);
    const double peer = figures.back().rate;
    for (std::size_t manager = 0; manager < 2; ++manager)
        Print({"exchanges a second, unpaced, " + (manager == 0 ? kOffScreen : kUnderX).name,
               figures[manager].rate, "1/s", ">= " + Shown(0.9 * peer), Shown(peer)});
}

const std::map<std::string, std::function<void(int)>> kRows = {
    {"paced", MeasurePaced},
    {"hogs", MeasureHogged},
    {"adapter16", [](int runs) { MeasureThroughAdapter("16", "<= 1.43", runs); }},
    {"adapter1", [](int runs) { MeasureThroughAdapter("1", "<= 1.03", runs); }},
    {"unpaced", MeasureUnpaced}};

} // namespace

int main(int argc, char* argv[])
try {
    const QCoreApplication application(argc, argv);
    const int runs = argc > 1 ? std::stoi(argv[1]) : 5;
    const std::vector<std::string> chosen(argv + std::min(argc, 2), argv + argc);
    for (const auto& [name, measure] : kRows)
        if (chosen.empty() || std::ranges::count(chosen, name) > 0) measure(runs);
    return 0;
} catch (const std::exception& failure) {
    std::cerr << "program_bench: " << failure.what() << '\n';
    return 1;
}
