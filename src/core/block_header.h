#pragma once

#include "core/fixed_text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace tarvex
{

/// Blocks in the unit's memory, and records in the header table. Blocks and records have numbers
/// from 1; the unit's addresses count blocks from 0 by their index.
inline constexpr int kBlockCount = 30;
inline constexpr int kLastBlockIndex = kBlockCount - 1;

/// The block with exactly that index; none for any other value, a fraction included.
std::optional<int> BlockWithIndex(double index);

/// The header of one block: a record of the header file, byte for byte. Offsets and widths in
/// bytes. The fields have the names that the survey table gives them.
struct BlockHeader {
    FixedText<8> cliente;    ///< client; offset 0
    FixedText<8> cantiere;   ///< site; offset 8
    FixedText<4> tubo;       ///< tube number; offset 16
    FixedText<4> profondità; ///< depth in tenths of a metre, four digits; offset 20
    FixedText<1> passo;      ///< step code, "0" for 0.5 m, "1" for 1 m; offset 24
    FixedText<1> guide;      ///< number of guides, "2" or "4"; offset 25
    FixedText<4> nord;       ///< bearing of north, sign and three digits of degrees; offset 26
    FixedText<2> nlet;       ///< readout number; offset 30
    FixedText<8> data;       ///< date DDMMYY and two blanks; offset 32
    FixedText<8> ora;        ///< time hhmmss and two blanks; offset 40
    FixedText<1> punto;      ///< carried, never interpreted; offset 48
    FixedText<7> gain1;      ///< gain of channel 1; offset 49
    FixedText<7> gain2;      ///< gain of channel 2; offset 56
    FixedText<7> zero1;      ///< zero of channel 1; offset 63
    FixedText<7> zero2;      ///< zero of channel 2; offset 70

    friend bool operator==(const BlockHeader&, const BlockHeader&) = default;
};

static_assert(std::is_trivially_copyable_v<BlockHeader>);
static_assert(sizeof(BlockHeader) == 77);
static_assert(offsetof(BlockHeader, tubo) == 16);
static_assert(offsetof(BlockHeader, nord) == 26);
static_assert(offsetof(BlockHeader, data) == 32);
static_assert(offsetof(BlockHeader, punto) == 48);
static_assert(offsetof(BlockHeader, zero2) == 70);

/// One of the fifteen fields, whatever its width.
using HeaderField = std::variant<FixedText<1> BlockHeader::*, FixedText<2> BlockHeader::*,
                                 FixedText<4> BlockHeader::*, FixedText<7> BlockHeader::*,
                                 FixedText<8> BlockHeader::*>;

/// The text of a field, with its blanks.
std::string_view TextOf(const BlockHeader& header, HeaderField field);

/// Sets a field, padded or cut to its width.
void SetText(BlockHeader& header, HeaderField field, std::string_view text);

/// The width of a field in bytes.
std::size_t WidthOf(HeaderField field);

/// The header of a block never used: row `index` (0 to 29) of the `DefaultHeaderTable`.
BlockHeader DefaultHeader(int index);

/// Sets every field but `cliente` to its default, in the order of the record.
void SetDefaultsButClient(BlockHeader& header);

/// The default client of block `number` (1 to 30): "CLIENT 1" to "CLIENT30".
std::string DefaultClient(int number);

} // namespace tarvex
