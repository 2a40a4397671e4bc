#pragma once

#include "link/memory_page.h"

#include <array>
#include <string>
#include <string_view>

namespace tarvex
{

/// The ten header values of a block as the unit holds them, raw.
struct HeaderValues {
    std::string cliente;
    std::string cantiere;
    std::string tubo;
    std::string profondità;
    std::string passo;
    std::string guide;
    std::string nord;
    std::string nlet;
    std::string data;
    std::string ora;
};

/// One of the pages "00" to "90" of bank "0" that hold a block's header, one field at the start of
/// each.
struct HeaderPage {
    std::string_view page;            ///< the address' page piece
    std::string HeaderValues::*value; ///< the field that it holds
    int byteCount;                    ///< how many of its bytes are read
    bool clearedBefore = true;        ///< false: the value stays when its byte cannot be decoded
};

/// The ten header pages in the order of reading.
using HeaderPages = std::array<HeaderPage, 10>;

/// The unit's memory map of a header; the date and the time are read with all their eight bytes.
inline constexpr HeaderPages kHeaderPages = {{
    {"00", &HeaderValues::cliente, 8},
    {"10", &HeaderValues::cantiere, 8},
    {"20", &HeaderValues::tubo, 4},
    {"30", &HeaderValues::profondità, 4},
    {"40", &HeaderValues::passo, 1, false},
    {"50", &HeaderValues::guide, 1, false},
    {"60", &HeaderValues::nord, 4},
    {"70", &HeaderValues::nlet, 2},
    {"80", &HeaderValues::data, 8},
    {"90", &HeaderValues::ora, 8},
}};

/// Reads the header of block `ReadAddrBlock` over an open port, page by page, each behind a wake of
/// its own: the first with its limit, the others without. A page whose wake is answered otherwise
/// than by "!" is passed over, and its value stays. False when the first wake ran out: nothing has
/// been read then.
[[nodiscard]] bool ReadHeaderPages(DeviceLink& link, Panel& panel, WorkingState& state,
                                   const HeaderPages& pages, HeaderValues& values);

/// Writes the ten values to the boxes `Text3` to `Text13`.
void ShowHeaderValues(Panel& panel, const HeaderValues& values);

} // namespace tarvex
