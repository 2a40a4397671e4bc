#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace tarvex::tests
{

/// The seed of this run: what TARVEX_SEED says, else that of the day.
std::uint32_t SeedOfRun();

/// How often a test goes through its rounds: so often in the short form, times what TARVEX_ROUNDS
/// says.
int Rounds(int inShort);

/// The moments and amounts of one test, also as a source of random numbers for the standard
/// library. The same seed gives each test the same ones.
class Chance
{
public:
    explicit Chance(const std::string& test);

    using result_type = std::mt19937::result_type;
    static constexpr result_type min() { return std::mt19937::min(); }
    static constexpr result_type max() { return std::mt19937::max(); }
    result_type operator()() { return random_(); }

    /// A number below `bound`.
    std::uint32_t Below(std::uint32_t bound)
    {
        return static_cast<std::uint32_t>(random_() % bound);
    }

private:
    std::mt19937 random_;
};

} // namespace tarvex::tests
