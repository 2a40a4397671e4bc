#pragma once

#include <array>
#include <string_view>

namespace tarvex::survey
{

/// What still passes as good. Counts are those of the readings.
struct Limits {
    double endOfScale = 32767;
    double frozenGuide = 3;
    double frozenChannel = 6;
    double outlier = 3.5;
    double outlierFloor = 10;
    double deviation = 10;
    double drift = 20;
    double spike = 8;
    double spikeFloor = 100;
    double pairDeviation = 20;
};

/// A limit under the name of its option, with the reason of its default.
struct LimitText {
    std::string_view name;
    double Limits::*value;
    std::string_view meaning;
    std::string_view reason;
};

inline constexpr std::array<LimitText, 10> kLimitTexts{{
    {"end-of-scale", &Limits::endOfScale, "a reading of so many counts or more is at its end",
     "the unit stores no larger magnitude"},
    {"frozen-guide", &Limits::frozenGuide,
     "A and B of one guide the same over so many depths are frozen",
     "both channels of a working probe repeat themselves twice in a row only by chance"},
    {"frozen-channel", &Limits::frozenChannel, "one channel the same over so many depths is frozen",
     "in a straight tube one channel alone may well repeat itself a few times"},
    {"outlier", &Limits::outlier,
     "a sum further from the median than so many robust standard deviations is out",
     "in sums that scatter normally one in two thousand is that far off"},
    {"outlier-floor", &Limits::outlierFloor, "a sum nearer to the median in counts is never out",
     "the last digits of both readings are never at rest"},
    {"deviation", &Limits::deviation, "largest robust standard deviation of the sums in counts",
     "when the sums scatter wider than that, no single sum can be singled out"},
    {"drift", &Limits::drift,
     "largest change of the sums from the deepest to the shallowest third in counts",
     "half of it goes into the half differences"},
    {"spike", &Limits::spike,
     "a half difference further from its neighbours than so many robust standard deviations is a "
     "spike",
     "a tube bends, so that its neighbours predict a half difference less well than a sum"},
    {"spike-floor", &Limits::spikeFloor,
     "a half difference nearer to its neighbours in counts is never a spike",
     "a joint or a shear of the tube stays below"},
    {"pair-deviation", &Limits::pairDeviation,
     "largest robust standard deviation in counts of A of one pair of guides against B of the "
     "other; it is the floor of their outliers too",
     "B runs across the guides and is less sure than A"},
}};

} // namespace tarvex::survey
