#include "survey/checks/checks.h"

#include <algorithm>
#include <limits>

namespace tarvex::survey
{

namespace
{
/// How sharply a wrong pass must fit before it is taken for one.
constexpr double kSharper = 4;
/// Fewer depths than this fit anything.
constexpr std::size_t kFewest = 5;

/// Another way in which the second pass can come from the first.
struct Suspicion {
    double spread = std::numeric_limits<double>::infinity();
    std::string text;
};

/// Median absolute deviation of second + sign x first, where `first` is looked up `shift` deeper.
double Spread(const Series& first, const Series& second, double sign, int shift = 0)
{
    std::vector<double> values;
    for (const auto& point : second)
        if (const auto* const other = At(first, point.depth + shift))
            values.push_back(point.value + sign * other->value);
    if (values.size() < kFewest) return std::numeric_limits<double>::infinity();
    return SummaryOf(values).mad;
}

Column OtherChannel(Column column)
{
    const auto number = static_cast<unsigned>(column);
    return static_cast<Column>(number ^ 1U);
}

Suspicion StrongestSuspicion(const CheckedSurvey& checked, const Pair& pair)
{
    const auto first = ReadingsOf(checked.survey, pair.first);
    const auto second = ReadingsOf(checked.survey, pair.second);
    const auto across = ReadingsOf(checked.survey, OtherChannel(pair.first));
    const std::string one(kColumnNames[static_cast<std::size_t>(pair.first)]);
    const std::string two(kColumnNames[static_cast<std::size_t>(pair.second)]);
    const std::string other(kColumnNames[static_cast<std::size_t>(OtherChannel(pair.first))]);
    const std::array<Suspicion, 5> suspicions{{
        {Spread(first, second, -1),
         two + " reads like " + one +
             ", not opposite to it: the probe was not turned, or one pass "
             "was stored twice"},
        {Spread(across, second, -1),
         two + " reads like " + other + ": the probe stood a quarter turn off"},
        {Spread(across, second, 1),
         two + " reads opposite to " + other + ": the probe stood a quarter turn off"},
        {Spread(first, second, 1, checked.step),
         two + " is opposite to " + one + " one step deeper: one pass began a step off"},
        {Spread(first, second, 1, -checked.step),
         two + " is opposite to " + one + " one step higher: one pass began a step off"},
    }};
    return *std::ranges::min_element(suspicions, {}, &Suspicion::spread);
}
} // namespace

bool CheckPass(const CheckedSurvey& checked, const Pair& pair)
{
    const double right = SummaryOf(ValuesOf(SumsOf(checked.survey, pair))).mad;
    if (right <= checked.limits.outlierFloor) return true;
    const auto suspicion = StrongestSuspicion(checked, pair);
    if (right <= kSharper * suspicion.spread) return true;
    checked.Report(
        {"pass", Remedy::ReadAllAgain, std::string(1, pair.channel), {}, suspicion.text});
    return false;
}

} // namespace tarvex::survey
