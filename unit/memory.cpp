#include "unit/memory.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tarvex::unit
{

std::uint32_t BlockBase(int block)
{
    if (block < 1 || block > kBlocks) throw std::out_of_range("a block number is 1 to 30");
    return static_cast<std::uint32_t>(block - 1) * kBlockBytes;
}

Memory::Memory() : image_(kMemoryBytes, '\0') {}

Memory::Memory(std::string image) : image_(std::move(image))
{
    if (image_.size() != kMemoryBytes)
        throw std::invalid_argument("a memory image is " + std::to_string(kMemoryBytes) +
                                    " bytes long, not " + std::to_string(image_.size()));
}

std::uint8_t Memory::At(std::uint32_t address) const
{
    return address < image_.size() ? static_cast<std::uint8_t>(image_[address]) : std::uint8_t{0};
}

Page Memory::PageAt(std::uint32_t address) const
{
    Page page{};
    std::generate(page.begin(), page.end(), [&] { return At(address++); });
    return page;
}

std::string Memory::Text(std::uint32_t address, std::size_t count) const
{
    std::string text(count, '\0');
    std::generate(text.begin(), text.end(), [&] { return static_cast<char>(At(address++)); });
    return text;
}

void Memory::Put(std::uint32_t address, std::string_view bytes)
{
    if (address >= image_.size()) return;
    const auto kept = std::min(bytes.size(), image_.size() - address);
    image_.replace(address, kept, bytes.substr(0, kept));
}

} // namespace tarvex::unit
