#include "core/block_header.h"

#include <cmath>

namespace tarvex
{

std::optional<int> BlockWithIndex(double index)
{
    if (!(index >= 0 && index <= kLastBlockIndex) || std::floor(index) != index)
        return std::nullopt;
    return static_cast<int>(index);
}

std::string_view TextOf(const BlockHeader& header, HeaderField field)
{
    return std::visit([&](auto member) { return (header.*member).View(); }, field);
}

void SetText(BlockHeader& header, HeaderField field, std::string_view text)
{
    std::visit([&](auto member) { header.*member = text; }, field);
}

std::size_t WidthOf(HeaderField field)
{
    return TextOf(BlockHeader{}, field).size();
}

std::string DefaultClient(int number)
{
    return (number < 10 ? "CLIENT " : "CLIENT") + std::to_string(number);
}

void SetDefaultsButClient(BlockHeader& header)
{
    header.cantiere = "SITE0000";
    header.tubo = "T   ";
    header.profondità = "0000";
    header.passo = "0";
    header.guide = "2";
    header.nord = "+000";
    header.nlet = "00";
    header.data = "DDMMYY  ";
    header.ora = "hhmmss";
    header.punto = "0";
    header.gain1 = "+1.0000";
    header.gain2 = "+1.0000";
    header.zero1 = "+0.0000";
    header.zero2 = "+0.0000";
}

BlockHeader DefaultHeader(int index)
{
    BlockHeader header;
    header.cliente = DefaultClient(index + 1);
    SetDefaultsButClient(header);
    return header;
}

} // namespace tarvex
