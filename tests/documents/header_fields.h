#pragma once

#include "core/block_header.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// One field of a header as the compiler lays it out.
struct HeaderField {
    std::string name;
    std::size_t offset;
    std::size_t width;

    /// What `header` holds in it.
    std::string Of(const BlockHeader& header) const
    {
        return {reinterpret_cast<const char*>(&header) + offset, width};
    }
};

/// All fields, in the order of the record.
inline std::vector<HeaderField> HeaderFields()
{
#define TARVEX_FIELD(field)                                                                        \
    HeaderField                                                                                    \
    {                                                                                              \
#field, offsetof(BlockHeader, field), sizeof(BlockHeader::field)                           \
    }
    return {TARVEX_FIELD(cliente),    TARVEX_FIELD(cantiere), TARVEX_FIELD(tubo),
            TARVEX_FIELD(profondità), TARVEX_FIELD(passo),    TARVEX_FIELD(guide),
            TARVEX_FIELD(nord),       TARVEX_FIELD(nlet),     TARVEX_FIELD(data),
            TARVEX_FIELD(ora),        TARVEX_FIELD(punto),    TARVEX_FIELD(gain1),
            TARVEX_FIELD(gain2),      TARVEX_FIELD(zero1),    TARVEX_FIELD(zero2)};
#undef TARVEX_FIELD
}

/// The field of that name; throws std::out_of_range when there is none.
inline HeaderField FieldNamed(const std::string& name)
{
    for (const HeaderField& field : HeaderFields())
        if (field.name == name) return field;
    throw std::out_of_range("no field " + name);
}

} // namespace tarvex::tests
