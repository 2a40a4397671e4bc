#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace tarvex::fuzz
{

/// Makes inputs out of kept ones, and out of nothing. The same seed gives the same inputs.
class Mutator
{
public:
    /// `longest` in bytes.
    Mutator(std::uint32_t seed, std::vector<std::string> kept, std::size_t longest);

    std::string Next();

private:
    std::size_t Below(std::size_t bound) { return random_() % bound; }
    char AnyByte() { return static_cast<char>(random_()); }
    std::string AnyBytes();
    void ChangeOnce(std::string& input);
    void Splice(std::string& input);

    std::mt19937 random_;
    std::vector<std::string> kept_;
    std::size_t longest_;
};

} // namespace tarvex::fuzz
