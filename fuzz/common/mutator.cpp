#include "common/mutator.h"

#include <algorithm>
#include <utility>

namespace tarvex::fuzz
{

Mutator::Mutator(std::uint32_t seed, std::vector<std::string> kept, std::size_t longest)
    : random_(seed), kept_(std::move(kept)), longest_(longest)
{
}

std::string Mutator::Next()
{
    std::string input = kept_.empty() || Below(4) == 0 ? AnyBytes() : kept_[Below(kept_.size())];
    for (std::size_t changes = 1 + Below(6); changes > 0; --changes)
        ChangeOnce(input);
    input.resize(std::min(input.size(), longest_));
    return input;
}

/// More often short than long.
std::string Mutator::AnyBytes()
{
    std::string bytes(Below(1 + Below(longest_)), '\0');
    for (char& byte : bytes)
        byte = AnyByte();
    return bytes;
}

void Mutator::ChangeOnce(std::string& input)
{
    const std::size_t place = Below(input.size() + 1);
    const bool inside = place < input.size();
    switch (Below(7)) {
    case 0:
        if (inside) input[place] = AnyByte();
        break;
    case 1:
        if (inside) input[place] = static_cast<char>(input[place] ^ (1 << Below(8)));
        break;
    case 2:
        input.insert(place, 1 + Below(4), AnyByte());
        break;
    case 3:
        input.erase(place, 1 + Below(8));
        break;
    case 4:
        input.insert(place, input.substr(Below(input.size() + 1), 1 + Below(32)));
        break;
    case 5:
        if (inside) input[place] = static_cast<char>(input[place] + (Below(2) == 0 ? 1 : -1));
        break;
    default:
        Splice(input);
    }
}

/// The end of another kept input from some place on.
void Mutator::Splice(std::string& input)
{
    if (kept_.empty()) return;
    const std::string& other = kept_[Below(kept_.size())];
    input.resize(Below(input.size() + 1));
    input += other.substr(Below(other.size() + 1));
}

} // namespace tarvex::fuzz
