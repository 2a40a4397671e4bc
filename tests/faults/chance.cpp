#include "faults/chance.h"

#include <cstdlib>
#include <ctime>
#include <vector>

namespace tarvex::tests
{

namespace
{

std::uint32_t OfEnvironment(const char* name, std::uint32_t otherwise)
{
    const char* const text = std::getenv(name);
    return text == nullptr ? otherwise : static_cast<std::uint32_t>(std::stoul(text));
}

std::uint32_t SeedOfTheDay()
{
    const std::time_t now = std::time(nullptr);
    std::tm day{};
    ::gmtime_r(&now, &day);
    return static_cast<std::uint32_t>((day.tm_year + 1900) * 10'000 + (day.tm_mon + 1) * 100 +
                                      day.tm_mday);
}

} // namespace

std::uint32_t SeedOfRun()
{
    static const std::uint32_t seed = OfEnvironment("TARVEX_SEED", SeedOfTheDay());
    return seed;
}

int Rounds(int inShort)
{
    return inShort * static_cast<int>(OfEnvironment("TARVEX_ROUNDS", 1));
}

Chance::Chance(const std::string& test)
{
    std::vector<std::uint32_t> numbers(test.begin(), test.end());
    numbers.push_back(SeedOfRun());
    std::seed_seq seeds(numbers.begin(), numbers.end());
    random_.seed(seeds);
}

} // namespace tarvex::tests
