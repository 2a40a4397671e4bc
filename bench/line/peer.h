#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <sys/resource.h>

namespace tarvex::bench
{

/// The least that a program on the line does: it sends and blocks until the answer is there.
struct Peer {
    std::function<void(const std::string& bytes)> send;
    std::function<void(int count)> take;
};

/// Processor time of this process so far, in seconds.
inline double ProcessorSeconds()
{
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
           1e-6 * static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec);
}

/// Reads as many pages as a download does, and prints the processor time that it took.
inline void Converse(const Peer& peer, int exchanges)
{
    const double before = ProcessorSeconds();
    for (int exchange = 0; exchange < exchanges; ++exchange) {
        peer.send("}");
        peer.take(1);
        peer.send("a02100\r");
        peer.take(50);
    }
    std::printf("%.6f\n", ProcessorSeconds() - before);
}

} // namespace tarvex::bench
