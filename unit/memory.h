#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvex::unit
{

inline constexpr int kBlocks = 30;
inline constexpr std::uint32_t kBlockBytes = 4096;
inline constexpr std::size_t kMemoryBytes = std::size_t{kBlocks} * kBlockBytes;
inline constexpr std::uint32_t kPageBytes = 16;

/// The bytes of one page, lowest address first.
using Page = std::array<std::uint8_t, kPageBytes>;

/// First address of a block; blocks count from 1 to 30, their windows lie 1000 hexadecimal apart.
/// Any other number throws std::out_of_range.
std::uint32_t BlockBase(int block);

/// The memory of the unit: thirty blocks of 4096 bytes in a space of 20 address bits.
class Memory
{
public:
    /// All bytes zero.
    Memory();

    /// A memory from its image of exactly kMemoryBytes bytes, block 1 first; another length throws
    /// std::invalid_argument.
    explicit Memory(std::string image);

    /// The byte at an address; zero where no memory is.
    std::uint8_t At(std::uint32_t address) const;

    /// The sixteen bytes from an address on.
    Page PageAt(std::uint32_t address) const;

    /// `count` bytes from an address on, as characters.
    std::string Text(std::uint32_t address, std::size_t count) const;

    /// Puts bytes from an address on; those past the end of the memory are lost.
    void Put(std::uint32_t address, std::string_view bytes);

    /// The image: kMemoryBytes bytes, block 1 first.
    const std::string& Image() const { return image_; }

    bool operator==(const Memory&) const = default;

private:
    std::string image_;
};

} // namespace tarvex::unit
