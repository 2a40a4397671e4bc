#include "platform/box_place.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace tarvex::platform
{

namespace
{

constexpr int kApart = 8; // from a sight, in pixels

std::int64_t Covered(const QRect& box, const std::vector<Sight>& sights)
{
    std::int64_t covered = 0;
    for (const auto& [place, worth] : sights) {
        const QRect common = box.intersected(place.adjusted(-kApart, -kApart, kApart, kApart));
        covered += std::int64_t{common.width()} * common.height() * worth;
    }
    return covered;
}

int Held(int place, int size, int from, int to)
{
    return std::max(from, std::min(place, to - size + 1));
}

/// A box that is moved as little as can be touches a sight, the room or its wanted place on each
/// axis: only these places count.
std::vector<int> Places(int wanted, int size, int from, int to,
                        const std::vector<std::pair<int, int>>& sides)
{
    std::vector<int> places{Held(wanted, size, from, to), from, Held(to, size, from, to)};
    for (const auto& [near, far] : sides) {
        places.push_back(Held(near - kApart - size, size, from, to));
        places.push_back(Held(far + kApart + 1, size, from, to));
    }
    return places;
}

} // namespace

QPoint PlaceOfBox(const QSize& box, const QRect& room, const QRect& window,
                  const std::vector<Sight>& sights)
{
    std::vector<std::pair<int, int>> columns;
    std::vector<std::pair<int, int>> rows;
    for (const Sight& sight : sights) {
        columns.emplace_back(sight.place.left(), sight.place.right());
        rows.emplace_back(sight.place.top(), sight.place.bottom());
    }
    const QPoint wanted = window.center() - QRect({}, box).center();
    std::pair best(std::numeric_limits<std::int64_t>::max(), std::numeric_limits<int>::max());
    QPoint place = wanted;
    for (const int x : Places(wanted.x(), box.width(), room.left(), room.right(), columns)) {
        for (const int y : Places(wanted.y(), box.height(), room.top(), room.bottom(), rows)) {
            const std::pair cost(Covered(QRect(QPoint(x, y), box), sights),
                                 (QPoint(x, y) - wanted).manhattanLength());
            if (cost >= best) continue;
            best = cost;
            place = {x, y};
        }
    }
    return place;
}

} // namespace tarvex::platform
