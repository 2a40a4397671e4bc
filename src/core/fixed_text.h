#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tarvex
{

/// A text field of a record: exactly `Width` bytes, NUL bytes until something is assigned.
/// Assigning pads with blanks on the right and cuts at the width.
template <std::size_t Width>
struct FixedText {
    std::array<char, Width> bytes{};

    FixedText& operator=(std::string_view text)
    {
        const std::size_t kept = std::min(text.size(), Width);
        std::copy_n(text.begin(), kept, bytes.begin());
        std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(kept), bytes.end(), ' ');
        return *this;
    }

    /// All `Width` bytes, filling included; the view is good as long as the field is not changed.
    std::string_view View() const { return {bytes.data(), Width}; }
    /// A copy of all `Width` bytes.
    std::string Text() const { return std::string(View()); }

    friend bool operator==(const FixedText&, const FixedText&) = default;
};

} // namespace tarvex
