#pragma once

#include "unit/memory.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvex::unit
{

/// Where a write frame's characters are kept: each field at the start of a page of its own.
struct FieldPlace {
    /// Distance from the block's base, in bytes.
    std::uint32_t page;
    /// Characters the frame carries.
    std::size_t width;
};

/// The survey description of a block, as text of these widths; a shorter text is padded with
/// blanks, a longer one cut. The values given here are those of a block that was never used.
struct BlockHeader {
    std::string client = "CLIENT 1"; ///< 8 characters
    std::string site = "SITE0000";   ///< 8
    std::string tube = "T";          ///< 4
    std::string depth = "0000";      ///< 4, tenths of a metre
    std::string step = "0";          ///< 1: "0" is 0.5 m, "1" is 1 m
    std::string guides = "2";        ///< 1: "2" or "4"
    std::string north = "+000";      ///< 4, degrees
    std::string readout = "00";      ///< 2, number of the readout
    std::string date = "DDMMYY";     ///< 8
    std::string time = "hhmmss";     ///< 8
};

/// One field of a header: where a frame's characters for it are kept, and where it is kept whole.
struct HeaderPlace : FieldPlace {
    std::string BlockHeader::*field;
    /// Bytes of the page that hold it; a frame carries fewer of the date and of the time.
    std::size_t bytes;
};

/// The header, in the order in which the 44 characters of a header frame come.
inline constexpr std::array<HeaderPlace, 10> kHeaderPlaces{{
    {{0x00, 8}, &BlockHeader::client, 8},
    {{0x10, 8}, &BlockHeader::site, 8},
    {{0x20, 4}, &BlockHeader::tube, 4},
    {{0x30, 4}, &BlockHeader::depth, 4},
    {{0x40, 1}, &BlockHeader::step, 1},
    {{0x50, 1}, &BlockHeader::guides, 1},
    {{0x60, 4}, &BlockHeader::north, 4},
    {{0x70, 2}, &BlockHeader::readout, 2},
    {{0x80, 6}, &BlockHeader::date, 8},
    {{0x90, 6}, &BlockHeader::time, 8},
}};

/// The 29 characters of a calibration frame: gain 1, zero 1, gain 2, zero 2, point. They are kept
/// above the ten pages of the header and below the data, where no command of the line looks.
inline constexpr std::array<FieldPlace, 5> kCalibrationPlaces{
    {{0xA0, 7}, {0xB0, 7}, {0xC0, 7}, {0xD0, 7}, {0xE0, 1}}};

/// Spreads the payload of a frame over the pages from `base` on; bytes of a page after its field
/// stay as they are.
template <class Place, std::size_t N>
void SpreadFields(Memory& memory, std::uint32_t base, const std::array<Place, N>& places,
                  std::string_view payload)
{
    for (const auto& place : places) {
        memory.Put(base + place.page, payload.substr(0, place.width));
        payload.remove_prefix(std::min(place.width, payload.size()));
    }
}

/// Puts a header into a block (1 to 30), date and time with all their eight characters. Data and
/// calibration of the block stay.
void PutHeader(Memory& memory, int block, const BlockHeader& header);

/// The header of a never-used block: its client carries the block number.
BlockHeader UnusedHeader(int block);

/// The memory of a unit that was never used: thirty unused headers with their calibration, no data.
Memory BlankMemory();

} // namespace tarvex::unit
