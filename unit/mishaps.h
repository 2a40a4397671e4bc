#pragma once

#include <array>
#include <optional>

namespace tarvex::unit
{

/// The readings of one depth in counts, in the order A1 B1 A3 B3 A2 B2 A4 B4.
using Readings = std::array<int, 8>;

/// What went wrong while a survey was taken, and what the ground did before it. Depths are in
/// tenths of a metre.
struct Mishaps {
    std::optional<int> frozen; ///< guide 1 gives this depth's readings at the next two above it too
    std::optional<int> spike;  ///< A1 is 300 counts too high there
    std::optional<int> swapped; ///< the readings of guides 1 and 3 were exchanged there
    std::optional<int> unread;  ///< nothing was stored there
    bool unturned = false;      ///< the probe went down guide 3 as it had gone down guide 1
    int drift = 0; ///< counts by which the zero of guide 3's pass moves from the bottom to the top
    int moved = 0; ///< the tube leans by so many times ShearCounts more
};

/// Counts by which the tube's lean along the first guides changes at a depth from one readout of a
/// moving tube to the next: 12 within two metres of two fifths of its length, else 0. Across them
/// it is a third of that.
int ShearCounts(int depth, int length);

/// Puts the mishaps into the readings of one survey, which must come deepest first.
class MishapMaker
{
public:
    /// `length` is the depth of the tube.
    MishapMaker(const Mishaps& mishaps, int length) : mishaps_(mishaps), length_(length) {}

    /// The readings as they are stored for that depth; nothing if none are.
    std::optional<Readings> Stored(int depth, Readings readings, int step);

private:
    void Freeze(int depth, Readings& readings, int step);

    const Mishaps mishaps_;
    const int length_;
    Readings frozen_{};
};

} // namespace tarvex::unit
