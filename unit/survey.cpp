#include "unit/survey.h"

#include "unit/tube.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <random>
#include <string>

namespace tarvex::unit
{

namespace
{
constexpr std::uint32_t kDataOffset = 0x100;
constexpr int kMostPages = 240;
constexpr double kCountsPerSine = 20000.0;
constexpr unsigned long long kDrawsOfASurvey = 2000; // more than its readings

int Tenths(const BlockHeader& header)
{
    int tenths = 0;
    std::from_chars(header.depth.data(), header.depth.data() + header.depth.size(), tenths);
    return tenths;
}

int StepTenths(const BlockHeader& header)
{
    return header.step == "0" ? 5 : 10;
}

/// Two bytes, high one first: bit 15 set for a positive reading, the magnitude in the others.
std::string Word(int reading)
{
    const auto magnitude = static_cast<unsigned>(std::min(std::abs(reading), 0x7FFF));
    const auto word = magnitude | (reading < 0 ? 0U : 0x8000U);
    return {static_cast<char>(word >> 8U), static_cast<char>(word & 0xFFU)};
}

/// One reading in counts: the lean, the probe's offset and the unrest of its last digit.
int Reading(int lean, int offset, std::mt19937& random)
{
    const int unrest = static_cast<int>(random() % 5U) - 2;
    return lean + offset + unrest;
}

int Counts(double sine)
{
    return static_cast<int>(std::lround(sine * kCountsPerSine));
}

/// The readings at one depth where the tube leans by `a` and `b` counts.
Readings ReadingsOf(int a, int b, const Survey& survey, std::mt19937& random)
{
    constexpr int kOffsetA = 12;
    constexpr int kOffsetB = -7;
    const int face = survey.mishaps.unturned ? 1 : -1;
    // Guides 1 and 3 face each other; 2 and 4 are a quarter turn from them.
    const std::array<std::array<int, 2>, 4> faces{{{a, b}, {face * a, face * b}, {b, -a}, {-b, a}}};
    Readings readings{};
    for (std::size_t i = 0; i < (survey.header.guides == "4" ? 4U : 2U); ++i) {
        readings[2 * i] = Reading(faces[i][0], kOffsetA, random);
        readings[2 * i + 1] = Reading(faces[i][1], kOffsetB, random);
    }
    return readings;
}

std::string PageOf(const Readings& readings, bool fourGuides)
{
    std::string page;
    for (std::size_t i = 0; i < (fourGuides ? 8U : 4U); ++i)
        page += Word(readings[i]);
    page.resize(kPageBytes, '\0');
    return page;
}

} // namespace

int PageCount(const BlockHeader& header)
{
    const int step = StepTenths(header);
    const int last = step == 5 ? 5 : 1;
    const int tenths = Tenths(header);
    if (tenths < last) return 0;
    return std::min((tenths - last) / step + 1, kMostPages);
}

void FillBlock(Memory& memory, int block, const Survey& survey)
{
    const auto data = BlockBase(block) + kDataOffset;
    PutHeader(memory, block, survey.header);
    memory.Put(data, std::string(kBlockBytes - kDataOffset, '\0'));

    std::mt19937 random(survey.seed);
    const Tube tube(random);
    // The same tube at a later readout, with an unrest of its own.
    random.discard(static_cast<unsigned long long>(survey.mishaps.moved) * kDrawsOfASurvey);
    const int bottom = Tenths(survey.header);
    const int step = StepTenths(survey.header);
    MishapMaker maker(survey.mishaps, bottom);
    for (int page = 0; page < PageCount(survey.header); ++page) {
        const int depth = bottom - page * step;
        const auto lean = tube.At(depth / 10.0, bottom / 10.0);
        const int shear = survey.mishaps.moved * ShearCounts(depth, bottom);
        const auto readings =
            ReadingsOf(Counts(lean.a) + shear, Counts(lean.b) + shear / 3, survey, random);
        if (const auto stored = maker.Stored(depth, readings, step))
            memory.Put(data + static_cast<std::uint32_t>(page) * kPageBytes,
                       PageOf(*stored, survey.header.guides == "4"));
    }
}

} // namespace tarvex::unit
