#include "survey/figures/pair.h"

#include <cstddef>

namespace tarvex::survey
{

namespace
{
std::string_view NameOf(Column column)
{
    return kColumnNames[static_cast<std::size_t>(column)];
}
} // namespace

std::string Pair::Sum() const
{
    return std::string(NameOf(first)) + "+" + std::string(NameOf(second));
}

std::string Pair::Difference() const
{
    return "(" + std::string(NameOf(first)) + "-" + std::string(NameOf(second)) + ")/2";
}

std::vector<Pair> PairsOf(const Survey& survey)
{
    return {kPairs.begin(), HasFourGuides(survey) ? kPairs.end() : kPairs.begin() + 2};
}

} // namespace tarvex::survey
