#include "unit/mishaps.h"

#include <cstdlib>
#include <utility>

namespace tarvex::unit
{

namespace
{
enum Word { kA1, kB1, kA3, kB3 };

constexpr int kSpike = 300;
constexpr int kFrozenDepths = 3;
} // namespace

int ShearCounts(int depth, int length)
{
    constexpr int kReach = 20;
    constexpr int kCounts = 12;
    return std::abs(5 * depth - 2 * length) <= 5 * kReach ? kCounts : 0;
}

void MishapMaker::Freeze(int depth, Readings& readings, int step)
{
    if (!mishaps_.frozen) return;
    if (depth == *mishaps_.frozen) frozen_ = readings;
    if (depth <= *mishaps_.frozen && depth > *mishaps_.frozen - kFrozenDepths * step) {
        readings[kA1] = frozen_[kA1];
        readings[kB1] = frozen_[kB1];
    }
}

std::optional<Readings> MishapMaker::Stored(int depth, Readings readings, int step)
{
    Freeze(depth, readings, step);
    if (length_ > 0) {
        const int drift = mishaps_.drift * (length_ - depth) / length_;
        readings[kA3] += drift;
        readings[kB3] += drift;
    }
    if (depth == mishaps_.spike) readings[kA1] += kSpike;
    if (depth == mishaps_.swapped) {
        std::swap(readings[kA1], readings[kA3]);
        std::swap(readings[kB1], readings[kB3]);
    }
    if (depth == mishaps_.unread) return std::nullopt;
    return readings;
}

} // namespace tarvex::unit
