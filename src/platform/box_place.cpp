#include "platform/box_place.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace tarvex::platform
{

namespace
{

constexpr int kApart = 8; // from a field, in pixels

std::int64_t Covered(const QRect& box, const std::vector<QRect>& fields)
{
    std::int64_t covered = 0;
    for (const QRect& field : fields) {
        const QRect common = box.intersected(field.adjusted(-kApart, -kApart, kApart, kApart));
        covered += std::int64_t{common.width()} * common.height();
    }
    return covered;
}

int Held(int place, int size, int from, int to)
{
    return std::max(from, std::min(place, to - size + 1));
}

/// A box that is moved as little as can be touches a field, the room or its wanted place on each
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
                  const std::vector<QRect>& fields)
{
    std::vector<std::pair<int, int>> columns;
    std::vector<std::pair<int, int>> rows;
    for (const QRect& field : fields) {
        columns.emplace_back(field.left(), field.right());
        rows.emplace_back(field.top(), field.bottom());
    }
    const QPoint wanted = window.center() - QRect({}, box).center();
    std::pair best(std::numeric_limits<std::int64_t>::max(), std::numeric_limits<int>::max());
    QPoint place = wanted;
    for (const int x : Places(wanted.x(), box.width(), room.left(), room.right(), columns)) {
        for (const int y : Places(wanted.y(), box.height(), room.top(), room.bottom(), rows)) {
            const std::pair cost(Covered(QRect(QPoint(x, y), box), fields),
                                 (QPoint(x, y) - wanted).manhattanLength());
            if (cost >= best) continue;
            best = cost;
            place = {x, y};
        }
    }
    return place;
}

} // namespace tarvex::platform
